// The program's start on the settings file beside it, quitting as soon as the window is shown.
#include "Paths.h"
#include "Toolkit.h"
#include "frmMain.h"

#include <QApplication>

int main(int argc, char** argv) {
    ui::PrepareToolkit();
    QApplication application(argc, argv);
    morvane::frmMain window(morvane::RunningProgram());
    window.Form_Load();
    window.show();
    QMetaObject::invokeMethod(&application, &QApplication::quit, Qt::QueuedConnection);
    const int status = QApplication::exec();
    return window.findChild<ui::ListBox*>("lstMap")->count() > 0 ? status : 1;
}
