#include "Paths.h"
#include "Toolkit.h"
#include "frmMain.h"

#include <QApplication>

int main(int argc, char** argv) {
    ui::PrepareToolkit();
    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(
        "org.morvane.Extractor"); // whose icon is the window's on some desktops
    morvane::frmMain window(morvane::RunningProgram());
    window.Form_Load();
    window.show();
    return QApplication::exec();
}
