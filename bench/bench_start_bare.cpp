// The floor of starting: a bare main window with a menu and an empty label, which quits as soon as it is
// shown.
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.menuBar()->addMenu("&File")->addAction("E&xit");
    window.setCentralWidget(new QLabel);
    window.resize(617, 507);
    window.show();
    QMetaObject::invokeMethod(&application, &QApplication::quit, Qt::QueuedConnection);
    return QApplication::exec();
}
