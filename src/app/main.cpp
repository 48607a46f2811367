#include "Paths.h"
#include "frmMain.h"

#include <QApplication>

int main(int argc, char** argv) {
    morvane::SurviveFileSizeLimits();
    QApplication application(argc, argv);
    // The dialogs of start-up close before the main window is there; that is no reason to end.
    QApplication::setQuitOnLastWindowClosed(false);
    morvane::frmMain window(morvane::RunningProgram());
    window.Form_Load();
    window.show();
    QApplication::setQuitOnLastWindowClosed(true);
    return QApplication::exec();
}
