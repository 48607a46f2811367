#pragma once

#include "SampleGame.h"
#include "frmMain.h"

#include <QtTest>
#include <QtWidgets>
#include <gtest/gtest.h>

namespace morvane {

namespace fs = std::filesystem;

/// The names of the things that are otherwise in the second set, or not there; "more" when it has others.
template <typename Things>
std::string Differences(const Things& a, const Things& b) {
    std::string names;
    for (const auto& [name, thing] : a)
        if (!b.contains(name) || b.at(name) != thing) names += name + ", ";
    return names + (b.size() > a.size() ? "more" : "");
}

inline std::map<std::string, ByteVector> FilesIn(const std::string& folder) {
    std::map<std::string, ByteVector> files;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.is_regular_file()) files[entry.path().filename().string()] = BytesOf(entry.path().string());
    return files;
}

/// Tells pictures apart.
inline std::string SumOf(const QImage& image) {
    const QImage same = image.convertToFormat(QImage::Format_RGB32);
    const std::string bits = std::to_string(qHash(QByteArrayView(same.constBits(), same.sizeInBytes())));
    return std::to_string(image.width()) + " wide, " + bits;
}

/// The real main window with a program folder, symbol files and a sample game of its own, driven as a user
/// would. Modal dialogs are noted and answered as soon as they come up.
struct TestWindow : testing::Test {
    using Parts = std::map<std::string, std::string>;

    TestWindow() {
        fs::current_path("/");
        for (const std::string n : {"1", "2", "3"}) // code 1 has another colour in each episode
            ProgramFolder.Write("Episode" + n + ".tsd", "[Plane 0]\r\n1=," + std::string(49, n[0]) + ",\r\n");
        // Queued: a timer does not fire again inside what it has started.
        Watch.callOnTimeout(
            &Watch, [this] { Look(); }, Qt::QueuedConnection);
        Watch.start(1);
    }

    /// Starts anew, with this folder remembered.
    void Start(const std::string& folder, const QList<std::string>& answers = {}) {
        Answers = answers;
        ProgramFolder.Write("viewer.ini", "[Settings]\r\nOpenPath=" + folder + "\r\n");
        Window = std::make_unique<frmMain>(Program{ProgramFolder.Path, "viewer"});
        Window->Form_Load();
        Window->show();
    }
    void StartOnSample(const std::vector<int>& episodes = {1, 2, 3}) {
        Sample.Write(GameDir, episodes);
        Start(GameDir.Path);
    }
    [[nodiscard]] std::string Settings() const { return TextOf(ProgramFolder / "viewer.ini"); }

    template <typename Widget = QWidget>
    [[nodiscard]] Widget& Get(const QString& name) const {
        return *Window->findChild<Widget*>(name);
    }

    /// Does what the user does: keys as "Ctrl+W", a menu item by its name, a click on "lstMap 2", or several
    /// of them with ", " between. Answers the dialogs that follow (see Answers), and returns the state, the
    /// dialogs, and what is mixed.
    std::string Do(const std::string& action, const QList<std::string>& answers = {}) {
        Answers = answers;
        QApplication::setActiveWindow(Window.get());
        QApplication::processEvents();
        for (const QString& step : QString::fromStdString(action).split(", ")) {
            QWidget* focus = QApplication::focusWidget();
            if (const auto* list = Window->findChild<QListWidget*>(step.section(' ', 0, 0))) {
                const QRect entry = list->visualItemRect(list->item(step.section(' ', 1).toInt()));
                QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, entry.center());
            } else if (auto* item = Window->findChild<QAction*>(step))
                item->trigger();
            else
                QTest::keySequence(focus != nullptr ? focus : Window.get(), QKeySequence(step));
        }
        return State() + TakeSeen() + Mixed();
    }

    /// The dialogs seen since the last call, a line for each, with "GAME" and "PROGRAM" for the folders. It
    /// begins with "!" for the critical icon, "^" for an owner that is shown, "~" for the busy pointer, "R"
    /// for a dialog that makes no folders, "Y" or "N" for a question and its preset answer. Then come the
    /// title and the text or the path proposed.
    std::string TakeSeen() { return std::exchange(Seen, {}).toStdString(); }

    /// A letter for each frame ("V" when it is visible, "e" when it is enabled only; "v" or "-" when it is
    /// disabled), then a sign for Export, Export All, each episode and each view ("*" checked, "+" enabled
    /// only; "x" or "-" when it is disabled). "Vee--*++*++" is a game just opened.
    [[nodiscard]] std::string State() const {
        std::string text;
        for (const char* name : {"fra0", "fra1", "fra2"})
            text += "-evV"[2 * !Get(name).isHidden() + Get(name).isEnabled()];
        for (const auto* item : Window->findChildren<QAction*>(QRegularExpression("mnu(FileExp|View)")))
            text += "-+x*"[2 * item->isChecked() + item->isEnabled()];
        return text;
    }
    [[nodiscard]] bool IsOpen() const { return State().find('V') != std::string::npos; }
    [[nodiscard]] int Episode() const { return static_cast<int>(State().find_first_of("*x", 5)) - 4; }

    /// State, lists, pictures and codes.
    [[nodiscard]] Parts Screen() const {
        Parts screen{{"state", State()}, {"txt", Get<QPlainTextEdit>("txt").toPlainText().toStdString()}};
        for (const char* name : Lists) {
            for (const ui::ListItem& item : Get<ui::ListBox>(name).Items()) screen[name] += item.Text + ",";
            screen[name] += std::to_string(Chosen(name));
        }
        for (const char* name : {"picMap", "pic"}) screen[name] = SumOf(Get<ui::PictureBox>(name).Image());
        return screen;
    }
    [[nodiscard]] int Chosen(const char* list) const { return Get<QListWidget>(list).currentRow(); }

    /// What on the screen is not of Sample and the episode checked while the controls are enabled.
    [[nodiscard]] std::string Mixed() const {
        if (!IsOpen()) return {};
        const int episode = Episode(), image = Chosen("lstImage");
        const SampleGame model = Sample.InEpisode(episode);
        Parts want = Screen();
        for (const char* name : Lists) want[name].clear();
        for (int i = 0; i < std::ssize(model.Maps); ++i) want["lstMap"] += "Map " + std::to_string(i) + ",";
        for (int i = 0; const auto& [number, group] : model.Groups) {
            want["lstGroup"] += "Group " + std::to_string(number) + ",";
            if (i++ != Chosen("lstGroup")) continue;
            for (int k = 0; k < std::ssize(group.Images); ++k) want["lstImage"] += std::to_string(k) + ",";
            if (image < 0) continue; // the image shown before stays
            const QString name = QString::asprintf("Picture %d-%03d-%02d.bmp", episode, number, image + 1);
            const ByteVector file = Sample.ImageFiles(episode)[name.toStdString()];
            want["pic"] = SumOf(QImage::fromData({file.data(), std::ssize(file)}));
            QByteArray codes(reinterpret_cast<const char*>(group.Codes.data()), std::ssize(group.Codes));
            codes[2] = static_cast<char>(group.Images.size());
            want["txt"] = "0x" + codes.toHex(' ').toUpper().replace(" ", " 0x").toStdString() + " ";
        }
        want["lstSound"] = "InstBank 1,MIDI 2,VOC 17,";
        for (const char* name : Lists) want[name] += std::to_string(Chosen(name));
        QImage cells(64, 64, QImage::Format_Indexed8);
        cells.setColorTable({0xFF000000, QList{0xFF0000A8, 0xFF00A800, 0xFF00A8A8}[episode - 1], 0xFFFCFCFC});
        for (int i = 0; const auto& [below, above] : model.Maps.begin()[std::max(Chosen("lstMap"), 0)]) {
            cells.setPixel(i % 64, i / 64, above > 0 ? 2 : below);
            ++i;
        }
        want["picMap"] = SumOf(cells.scaled(448, 448));
        const std::string mixed = Differences(Screen(), want);
        return mixed.empty() ? "" : "\nMIXED: " + mixed;
    }

    /// The files that Export All writes otherwise than Sample and the episode say, while it is enabled.
    std::string WrongExports() {
        if (!Get<QAction>("mnuFileExportAll").isEnabled()) return {};
        const TempFolder target;
        Do("mnuFileExportAll", {target.Path});
        const bool images = Get<QAction>("mnuViewFrame1").isChecked();
        return Differences(FilesIn(target.Path), images ? Sample.ImageFiles(Episode()) : Sample.SoundFiles());
    }

    void Look() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return;
        auto* box = qobject_cast<QMessageBox*>(dialog);
        auto* files = qobject_cast<QFileDialog*>(dialog);
        auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
        if (name != nullptr && !name->hasFocus()) { // as it is for whoever types
            dialog->activateWindow();
            return name->setFocus();
        }
        const bool asks = box != nullptr && box->standardButtons().testFlag(QMessageBox::Yes);
        QString seen = box != nullptr && box->icon() == QMessageBox::Critical ? "\n!" : "\n";
        if (dialog->parentWidget() != nullptr && dialog->parentWidget()->isVisible()) seen += '^';
        if (QApplication::overrideCursor() != nullptr) seen += '~';
        if (files != nullptr && files->testOption(QFileDialog::ReadOnly)) seen += 'R';
        EXPECT_GT(dialog->width(), dialog->fontMetrics().horizontalAdvance(dialog->windowTitle()) + 100);
        if (asks) seen += box->defaultButton()->text().right(1) == "s" ? 'Y' : 'N';
        seen += dialog->windowTitle() + ": ";
        for (const QLabel* label : dialog->findChildren<QLabel*>("qt_msgbox_label"))
            for (const QString& word : label->text().split(QRegularExpression("\\s"))) // nothing is cut off
                EXPECT_LE(label->fontMetrics().horizontalAdvance(word), label->width());
        seen += box != nullptr ? box->text() : files->directory().filePath(name->text());
        Seen += seen.replace(GameDir.Path.c_str(), "GAME").replace(ProgramFolder.Path.c_str(), "PROGRAM");
        if (Meanwhile) std::exchange(Meanwhile, {})(*dialog);
        if (box != nullptr && !asks) return box->button(QMessageBox::Ok)->click();
        if (Answers.empty()) return asks ? box->button(QMessageBox::Yes)->click() : dialog->reject();
        const std::string answer = Answers.takeFirst();
        if (asks) return box->button(answer == "no" ? QMessageBox::No : QMessageBox::Yes)->click();
        if (!answer.empty()) name->setText(QString::fromStdString(answer));
        QTest::keyClick(name, Qt::Key_Return);
    }

    static constexpr std::array Lists{"lstMap", "lstGroup", "lstImage", "lstSound"};

    TempFolder ProgramFolder, GameDir;
    SampleGame Sample;
    /// For file dialogs, in turn: what to type, "" for what stands there; then they are cancelled. For
    /// questions: "no" or anything else; then yes.
    QList<std::string> Answers;
    std::function<void(QDialog&)> Meanwhile; ///< done once, before the next dialog is answered
    std::unique_ptr<frmMain> Window;
    QString Seen;
    QTimer Watch;
};

} // namespace morvane
