// Chooses episodes in the real window, on the settings file beside the program, until the window is painted;
// beside that reads the same bytes and paints the same picture once. Prints both times of each run in
// milliseconds.
#include "Toolkit.h"
#include "frmMain.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QPainter>

#include <chrono>
#include <iostream>

namespace {

/// What the floor paints: the map that the program shows, in a window of the same size.
class Pictures : public QWidget {
  public:
    std::vector<QImage> Shown;

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        for (const QImage& image : Shown) painter.drawImage(152, 24, image);
    }
};

double Milliseconds(const auto& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

} // namespace

int main(int argc, char** argv) {
    ui::PrepareToolkit();
    QApplication application(argc, argv);
    const morvane::Program program = morvane::RunningProgram();
    const QString game = argv[1];
    morvane::frmMain window(program);
    window.Form_Load();
    window.show();
    Pictures bare;
    bare.resize(window.size());
    bare.show();
    QApplication::processEvents();

    for (int run = 0; run < 60; ++run) {
        const int episode = run % 3 + 1;
        auto* item = window.findChild<QAction*>("mnuViewEpisode" + QString::number(episode - 1));
        const double ours = Milliseconds([&] {
            item->trigger();
            QApplication::processEvents();
        });
        bare.Shown.clear();
        bare.Shown.push_back(window.findChild<ui::PictureBox*>("picMap")->pixmap().toImage().copy());
        const double floor = Milliseconds([&] {
            const QString number = QString::number(episode);
            for (const QString& path : {game + "/IMG." + number, game + "/MAP." + number,
                                        program.Folder.c_str() + ("/Episode" + number) + ".tsd"}) {
                QFile file(path);
                if (!file.open(QIODevice::ReadOnly) || file.readAll().isEmpty()) std::exit(1);
            }
            bare.update();
            QApplication::processEvents();
        });
        std::cout << ours << ' ' << floor << '\n';
    }
}
