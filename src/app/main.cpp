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
    return QApplication::exec();
}
