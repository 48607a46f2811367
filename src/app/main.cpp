#include "Paths.h"
#include "Toolkit.h"
#include "frmMain.h"

#include <QApplication>

int main(int argc, char** argv) {
    ui::PrepareToolkit();
    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(
        "org.morvane.Extractor"); // whose icon is the window's on some desktops
    // The dialogs of start-up close before the main window is there; that is no reason to end.
    QApplication::setQuitOnLastWindowClosed(false);
    morvane::frmMain window(morvane::RunningProgram());
    window.Form_Load();
    window.show();
    QApplication::setQuitOnLastWindowClosed(true);
    return QApplication::exec();
}
