#include "TestWindow.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace morvane {

TestWindow::TestWindow() {
    // The look itself is queued: a timer does not fire again inside what it has started.
    QObject::connect(&Watch, &QTimer::timeout, &Watch, [this] {
        QMetaObject::invokeMethod(
            &Watch, [this] { Look(); }, Qt::QueuedConnection);
    });
    Watch.start(1);
}

TestWindow::~TestWindow() { Watch.stop(); }

frmMain& TestWindow::Start() {
    Window = std::make_unique<frmMain>(Program{ProgramFolder.Path, "viewer"});
    Window->Form_Load();
    Window->show();
    QApplication::processEvents();
    return *Window;
}

frmMain& TestWindow::StartOnSample(const std::vector<int>& episodes) {
    Sample.Write(GameDir, episodes);
    Remember(GameDir.Path);
    return Start();
}

void TestWindow::Remember(const std::string& folder) const {
    ProgramFolder.Write("viewer.ini", "[Settings]\r\nOpenPath=" + folder + "\r\n");
}

void TestWindow::Look() {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || (Answer && Answer(*dialog))) return;
    SeenDialog seen{dialog->windowTitle().toStdString(), "", QMessageBox::NoIcon,
                    dialog->parentWidget() != nullptr && dialog->parentWidget()->isVisible(),
                    QApplication::overrideCursor() != nullptr};
    if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
        seen.Text = box->text().toStdString();
        seen.Icon = box->icon();
        Seen.push_back(seen);
        box->button(QMessageBox::Ok)->click();
        return;
    }
    seen.Text = dialog->findChild<QLabel*>("title")->text().toStdString();
    Seen.push_back(seen);
    auto* path = dialog->findChild<QLineEdit*>();
    LastStartFolder = path->text().toStdString();
    if (Folders.empty()) {
        dialog->reject();
        return;
    }
    const std::string folder = Folders.front();
    Folders.erase(Folders.begin());
    path->selectAll();
    QTest::keyClicks(path, QString::fromStdString(folder));
    QTest::keyClick(path, Qt::Key_Return);
}

void TestWindow::Press(QWidget& widget, const char* keys) {
    widget.window()->activateWindow();
    QApplication::processEvents();
    const QKeyCombination combination = QKeySequence(keys)[0];
    QTest::keyClick(&widget, combination.key(), combination.keyboardModifiers());
    QApplication::processEvents();
}

void TestWindow::Click(ui::ListBox& list, int index) {
    const QModelIndex item = list.model()->index(index, 0);
    list.scrollTo(item);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(item).center());
    QApplication::processEvents();
}

std::string StateOf(const frmMain& window) {
    std::string text;
    const auto flag = [&](bool on) { text += on ? '1' : '0'; };
    text += "frames ";
    for (const QGroupBox* frame : window.fra) flag(frame->isEnabled());
    text += " view ";
    flag(window.mnuView->IsEnabled());
    text += " exports ";
    flag(window.mnuFileExport->isEnabled());
    flag(window.mnuFileExportAll->isEnabled());
    text += " visible ";
    for (const QGroupBox* frame : window.fra) flag(!frame->isHidden());
    text += " views ";
    for (const QAction* item : window.mnuViewFrame) flag(item->isChecked());
    text += " episodes ";
    for (const QAction* item : window.mnuViewEpisode) flag(item->isChecked());
    text += " filled ";
    for (const ui::ListBox* list : {window.lstMap, window.lstGroup, window.lstImage, window.lstSound})
        flag(list->Count() > 0);
    for (const ui::PictureBox* box : {window.picMap, window.pic}) flag(!box->Image().isNull());
    return text;
}

namespace {
std::vector<std::string> GivenArguments;
}

const std::vector<std::string>& TestArguments() { return GivenArguments; }

} // namespace morvane

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    morvane::GivenArguments.assign(argv + 1, argv + argc);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
