#pragma once

#include "SampleGame.h"
#include "frmMain.h"

#include <QtTest>
#include <QtWidgets>
#include <gtest/gtest.h>

namespace morvane {

namespace fs = std::filesystem;

/// The real main window with a program folder, symbol files and a sample game of its own, driven as a user
/// would. What is done and what is seen is said in words.
struct TestWindow : testing::Test {
    TestWindow() {
        fs::current_path("/");
        qputenv("HOME", Home.c_str());
        for (const std::string n : {"1", "2", "3"}) // code 1 has another colour in each episode
            ProgramFolder.Write("Episode" + n + ".tsd", "[Plane 0]\r\n1=," + std::string(49, n[0]) + ",\r\n");
        // Queued: a timer does not fire again inside what it has started.
        Watch.callOnTimeout(
            &Watch, [this] { Look(); }, Qt::QueuedConnection);
        Watch.start(1);
    }

    /// Starts the program, which remembers this folder; returns what is seen, as Do does.
    std::string Start(const std::string& folder, const QList<std::string>& answers = {}) {
        ProgramFolder.Write("viewer.ini", "[Settings]\r\nOpenPath=" + folder + "\r\n");
        return StartAsItIs(answers);
    }
    /// Starts the program as it is.
    std::string StartAsItIs(const QList<std::string>& answers) {
        Answers = answers;
        Window = std::make_unique<frmMain>(Program{ProgramFolder.Path, "viewer"});
        Window->Form_Load();
        Window->show();
        return Seen();
    }
    void StartOnSample() {
        Sample.Write(GameDir);
        Start(GameDir.Path);
    }
    [[nodiscard]] std::string Settings() const { return TextOf(ProgramFolder / "viewer.ini"); }

    /// Does what the user does, one step or several with ", " between: a menu item ("Export All"), a click on
    /// an entry of a list ("Map 1", "MIDI 2", for the image list "image 0") or a key ("Home"). What there is
    /// not fails the test, but for an entry "if listed". Questions and
    /// dialogs get the answers in turn; without an answer left, questions get "yes" and others "cancel".
    ///
    /// An answer to a file dialog, or to the question for a name, is typed over what stands in the field, key
    /// by key, with Enter behind it; "HOME" stands for the folder above the program's. Other answers are
    /// "cancel", "accept" for a mere Enter in the field, "type me/" for keys without Enter, "press Delete"
    /// for a key where the keyboard is, "reach sidebar" for Tab until that part has it, "click sub" for an
    /// entry of the list or a button, "drag sub to out" and "lose sub", which someone else deletes. What an
    /// answer needs is waited for. Returns what is seen.
    std::string Do(const std::string& steps, const QList<std::string>& answers = {}) {
        Answers = answers;
        for (const QString& step : QString::fromStdString(steps).split(", ")) {
            QApplication::setActiveWindow(Window.get());
            QApplication::processEvents();
            DoStep(step);
        }
        return Seen();
    }

    /// The state; the dialogs since the last call, a line for each with "GAME", "PROGRAM" and "HOME" for the
    /// folders; and what is not of Sample while the controls are enabled.
    std::string Seen() { return State() + std::exchange(Dialogs, {}).toStdString() + Mixed(); }

    /// The view, whether it can be exported, the episodes that can be chosen and a star at the one checked:
    /// "Sounds, exports, episodes 1 2* 3". While the controls are disabled: "empty" before the first game,
    /// then "empty Sounds, episode 2 is checked". What does not agree follows behind "but".
    [[nodiscard]] std::string State() const {
        const QStringList views{"Maps", "Walls/Sprites", "Sounds"};
        const bool open = Get("fra0").isEnabled(), exports = Get<QAction>("mnuFileExport").isEnabled();
        QStringList shown, checked, episodes, others;
        for (int i = 0; i < 3; ++i) {
            const QString n = QString::number(i), number = QString::number(i + 1);
            const auto &view = Get<QAction>("mnuViewFrame" + n),
                       &episode = Get<QAction>("mnuViewEpisode" + n);
            if (!Get("fra" + n).isHidden()) shown += views[i];
            if (view.isChecked()) checked += views[i];
            if (Get("fra" + n).isEnabled() != open || view.isEnabled() != open)
                others += "but " + views[i] + (open ? " is disabled" : " is enabled");
            if (episode.isEnabled()) episodes += number + (episode.isChecked() ? "*" : "");
            if (episode.isChecked() && !episode.isEnabled()) others += "episode " + number + " is checked";
        }
        const bool untouched = !open && checked.isEmpty() && shown == views.first(1);
        QStringList words{untouched ? "empty" : (open ? "" : "empty ") + shown.join(" and ")};
        if (exports) words += "exports";
        if (open && exports == (shown == views.first(1))) others += "but exports are for the other views";
        if (Get<QAction>("mnuFileExportAll").isEnabled() != exports) others += "but Export All differs";
        if (!episodes.isEmpty()) words += "episodes " + episodes.join(' ');
        if (checked != shown && !untouched) others += "but " + checked.join(" and ") + " is checked";
        return (words + others).join(", ").toStdString();
    }
    [[nodiscard]] bool IsOpen() const { return !State().starts_with("empty"); }
    [[nodiscard]] int Episode() const { // the one checked
        const auto checked = [this](const char* item) { return Get<QAction>(item).isChecked(); };
        return checked("mnuViewEpisode1") ? 2 : checked("mnuViewEpisode2") ? 3 : 1;
    }
    [[nodiscard]] int Chosen(const char* list) const { return Get<QListWidget>(list).currentRow(); }

    /// State, lists, pictures and codes; "nothing" for a list without entries or no picture.
    [[nodiscard]] Contents Screen() const {
        Contents screen{{"state", State()}, {"txt", Get<QPlainTextEdit>("txt").toPlainText().toStdString()}};
        for (const char* list : Lists) {
            QStringList entries;
            for (const ui::ListItem& item : Get<ui::ListBox>(list).Items())
                entries += QString::fromStdString(item.Text);
            screen[list] = InWords(entries, Chosen(list));
        }
        for (const char* box : {"picMap", "pic"}) screen[box] = InWords(Get<QLabel>(box).pixmap().toImage());
        return screen;
    }

    /// How exports differ from those of Sample and the episode checked, while they are enabled.
    std::string WrongExports() {
        if (!Get<QAction>("mnuFileExportAll").isEnabled()) return {};
        const TempFolder target;
        Do("Export All", {target.Path});
        const bool images = Get<QAction>("mnuViewFrame1").isChecked();
        return Differences(target.Files(), images ? Sample.ImageFiles(Episode()) : Sample.SoundFiles());
    }

    template <typename Widget = QWidget>
    [[nodiscard]] Widget& Get(const QString& name) const {
        return *Window->findChild<Widget*>(name);
    }

    static constexpr std::array Lists{"lstMap", "lstGroup", "lstImage", "lstSound"};

    TempFolder ProgramFolder{"/a/b/c/me/app"}, GameDir;
    const std::string Home = fs::path(ProgramFolder.Path).parent_path().string();
    SampleGame Sample;
    QList<std::string> Answers;
    std::function<void(QDialog&)> Meanwhile; ///< done once, before the next dialog is answered
    std::unique_ptr<frmMain> Window;

  private:
    void DoStep(QString step) const {
        const bool mayMiss = step.endsWith(" if listed");
        step.remove(" if listed");
        const QString name = step.startsWith("image ") ? step.sliced(6) : step;
        for (auto* list : Window->findChildren<QListWidget*>())
            for (auto* entry : list->findItems(name, Qt::MatchExactly)) {
                if (!list->isVisible()) continue;
                list->scrollToItem(entry);
                const QPoint place = list->visualItemRect(entry).center();
                return QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
            }
        QKeySequence keys(step);
        for (auto* item : Window->findChildren<QAction*>()) {
            if (item->text().remove('&') != step) continue;
            keys = item->shortcut();
            if (keys.isEmpty()) return item->trigger();
        }
        if (keys[0].key() == Qt::Key_unknown) {
            EXPECT_TRUE(mayMiss) << "There is nothing that is called \"" << step.toStdString() << '"';
            return;
        }
        QWidget* focus = QApplication::focusWidget();
        QTest::keySequence(focus != nullptr ? focus : Window.get(), keys);
    }

    /// "Map 0, Map 1*" for a list whose second entry is selected.
    static std::string InWords(QStringList entries, int chosen) {
        if (chosen >= 0 && chosen < entries.size()) entries[chosen] += "*";
        return entries.isEmpty() ? "nothing" : entries.join(", ").toStdString();
    }
    static std::string InWords(const QImage& image) {
        if (image.isNull()) return "nothing";
        const QImage same = image.convertToFormat(QImage::Format_RGB32);
        const auto sum = qHash(QByteArrayView(same.constBits(), same.sizeInBytes()));
        return QString::asprintf("%d x %d pixels, sum %zu", image.width(), image.height(), sum).toStdString();
    }
    [[nodiscard]] QImage Drawn(const encode::Map& map) const {
        QImage cells(64, 64, QImage::Format_Indexed8);
        const QList<QRgb> colorOfCode1{0xFF0000A8, 0xFF00A800, 0xFF00A8A8};
        cells.setColorTable({0xFF000000, colorOfCode1[Episode() - 1], 0xFFFCFCFC});
        for (int i = 0; const auto& [below, above] : map) {
            cells.setPixel(i % 64, i / 64, above > 0 ? 2 : below);
            ++i;
        }
        return cells.scaled(448, 448);
    }

    /// The parts of the screen that are otherwise than Sample and the episode checked have them, whatever
    /// entries are selected; nothing while the controls are disabled.
    [[nodiscard]] std::string Mixed() const {
        if (!IsOpen()) return {};
        const SampleGame game = Sample.InEpisode(Episode());
        const int map = Chosen("lstMap"), chosenGroup = Chosen("lstGroup"), image = Chosen("lstImage");
        Contents wanted = Screen();
        QStringList maps, groups, images;
        for (int i = 0; i < std::ssize(game.Maps); ++i) maps += "Map " + QString::number(i);
        if (map >= 0 && map < maps.size()) wanted["picMap"] = InWords(Drawn(game.Maps.begin()[map]));
        for (int i = 0; const auto& [number, group] : game.Groups) {
            groups += "Group " + QString::number(number);
            if (i++ != chosenGroup) continue;
            for (int k = 0; k < std::ssize(group.Images); ++k) images += QString::number(k);
            if (image < 0) continue; // the image shown before stays
            const std::string file =
                Sample.ImageFiles(Episode())[SampleGame::ImageFileName(Episode(), number, image)];
            wanted["pic"] = InWords(QImage::fromData(QByteArray::fromStdString(file)));
            QByteArray codes(reinterpret_cast<const char*>(group.Codes.data()), std::ssize(group.Codes));
            codes[2] = static_cast<char>(images.size());
            wanted["txt"] = "0x" + codes.toHex(' ').toUpper().replace(" ", " 0x").toStdString() + " ";
        }
        wanted["lstMap"] = InWords(maps, map);
        wanted["lstGroup"] = InWords(groups, chosenGroup);
        wanted["lstImage"] = InWords(images, image);
        wanted["lstSound"] = InWords({"MIDI 2", "InstBank 9", "VOC 17"}, Chosen("lstSound"));
        return Differences(Screen(), wanted);
    }

    /// Notes a dialog as soon as it has come up and has what its answer needs, and answers it.
    void Look() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return;
        std::function<void()> act = ActFor(*dialog, Answers.empty() ? "" : Answers.front());
        if (!act && ++LooksInVain < 3000) return;
        if (!act) Dialogs += "\nbut this was waited for in vain: " + QString::fromStdString(Answers.front());
        LooksInVain = 0;
        QString text = "\n" + InWords(*dialog);
        text.replace(GameDir.Path.c_str(), "GAME");
        text.replace(QRegularExpression(QString::fromStdString(ProgramFolder.Path + "\\b")), "PROGRAM");
        Dialogs += text.replace(Home.c_str(), "HOME");
        if (Meanwhile) std::exchange(Meanwhile, {})(*dialog);
        const auto* box = qobject_cast<QMessageBox*>(dialog);
        if (!Answers.empty() && (box == nullptr || Asks(*box))) Answers.removeFirst();
        if (act) return act();
        dialog->reject();
    }

    /// "question over a dialog, Yes preset: Title: text", "save dialog over the window: Title: path
    /// proposed".
    [[nodiscard]] QString InWords(const QDialog& dialog) const {
        const auto* box = qobject_cast<const QMessageBox*>(&dialog);
        const auto* files = qobject_cast<const QFileDialog*>(&dialog);
        const QWidget* owner = dialog.parentWidget();
        QString text;
        if (box != nullptr)
            text = QStringList{"message", "information", "warning", "error", "question"}[box->icon()];
        else if (files == nullptr)
            text = "question for a name";
        else
            text = files->fileMode() == QFileDialog::Directory ? "folder dialog" : "save dialog";
        text += owner == nullptr        ? " without an owner"
                : !owner->isVisible()   ? " over what is hidden"
                : owner == Window.get() ? " over the window"
                                        : " over a dialog";
        if (QApplication::overrideCursor() != nullptr) text += ", busy pointer";
        if (files != nullptr && files->testOption(QFileDialog::ReadOnly)) text += ", cannot make folders";
        if (box != nullptr && Asks(*box)) text += ", " + box->defaultButton()->text().remove('&') + " preset";
        text += ": " + dialog.windowTitle() + ": ";
        if (const auto* label = dialog.findChild<QLabel*>("qt_msgbox_label");
            label != nullptr && label->minimumSizeHint().width() > label->width())
            text += "but its text is cut: ";
        if (dialog.height() > dialog.screen()->size().height()) text += "but it is higher than the screen: ";
        if (dialog.fontMetrics().horizontalAdvance(dialog.windowTitle()) + 100 > dialog.width())
            text += "but its caption is cut: ";
        if (box != nullptr && box->textFormat() != Qt::PlainText)
            text += "but signs in it do not stand for themselves: ";
        if (box != nullptr) return text + box->text();
        if (files == nullptr) return text + Field(dialog)->text();
        text += files->directory().filePath(Field(*files)->text());
        for (const QModelIndex& index :
             files->findChild<QTreeView*>("treeView")->selectionModel()->selectedRows())
            text += ", " + index.data().toString() + " is highlighted";
        if (Button(*files, "Open") != nullptr) text += ", the button opens";
        if (QApplication::activePopupWidget() != nullptr) text += ", a list is open";
        return text;
    }

    static bool Asks(const QMessageBox& box) { return box.standardButtons().testFlag(QMessageBox::Yes); }

    /// The field of a file dialog, or that of the question for a name.
    static QLineEdit* Field(const QDialog& dialog) {
        auto* ofFiles = dialog.findChild<QLineEdit*>("fileNameEdit");
        return ofFiles != nullptr ? ofFiles : dialog.findChild<QLineEdit*>();
    }
    static QAbstractButton* Button(const QDialog& dialog, const QString& text) {
        for (auto* button : dialog.findChildren<QAbstractButton*>())
            if (button->text().remove('&') == text || button->toolTip() == text) return button;
        return nullptr;
    }
    static QModelIndex Entry(const QAbstractItemView& list, const QString& name) {
        const QModelIndex first = list.model()->index(0, 0, list.rootIndex());
        return list.model()->match(first, Qt::DisplayRole, name, 1, Qt::MatchExactly).value(0);
    }
    /// Where an entry of that name stands: in the list of the folder on display, or in that beside it.
    static std::pair<QWidget*, QPoint> Find(const QDialog& dialog, const QString& entry) {
        for (const char* name : {"treeView", "sidebar"})
            if (const auto* list = dialog.findChild<QAbstractItemView*>(name);
                list != nullptr && Entry(*list, entry).isValid())
                return {list->viewport(), list->visualRect(Entry(*list, entry)).center()};
        return {};
    }

    /// What gets the keys: a list that has popped up comes before what has the focus.
    static QWidget* Keyboard() {
        const QWidget* popup = QApplication::activePopupWidget();
        return popup != nullptr ? popup->focusWidget() : QApplication::focusWidget();
    }

    /// What an answer does to a dialog; nothing while something that it needs is not there.
    std::function<void()> ActFor(QDialog& dialog, const std::string& answer) {
        if (const auto* box = qobject_cast<QMessageBox*>(&dialog)) {
            const auto yes = answer == "no" ? QMessageBox::No : QMessageBox::Yes;
            return [=] { box->button(Asks(*box) ? yes : QMessageBox::Ok)->click(); };
        }
        if (answer.empty() || answer == "cancel") return [&] { dialog.reject(); };
        return ActFor(dialog, QString::fromStdString(answer).replace("HOME", Home.c_str()));
    }
    std::function<void()> ActFor(QDialog& dialog, const QString& answer) {
        const QString does = answer.section(' ', 0, 0), name = answer.section(' ', 1);
        const auto found = Find(dialog, name.section(" to ", 0, 0));
        QAbstractButton* button = Button(dialog, name);
        QLineEdit* field = Field(dialog);
        if (does == "click" && button != nullptr) return [=] { Click(button, button->rect().center()); };
        if (does == "click" && found.first != nullptr) return [=] { Click(found.first, found.second); };
        if (does == "drag" && found.first != nullptr)
            return [=, &dialog] { Drag(found, Find(dialog, name.section(" to ", 1)).second); };
        if (does == "lose")
            fs::remove_all(dynamic_cast<QFileDialog&>(dialog).directory().filePath(name).toStdString());
        if (does == "lose" && found.first == nullptr) return [] {};
        if (QStringList{"click", "drag", "lose"}.contains(does)) return {};

        QApplication::setActiveWindow(&dialog);
        const bool hasKeyboard = Keyboard() != nullptr;
        if (does == "press" && hasKeyboard) return [=] { Press(name); };
        if (auto* part = dialog.findChild<QWidget*>(name); does == "reach" && hasKeyboard)
            return [=] {
                while (!part->hasFocus()) Press("Tab");
            };
        if (does == "press" || does == "reach") return {};

        field->setFocus(); // as it is for whoever types
        if (!field->hasFocus()) return {};
        return [=] {
            if (does != "type" && answer != "accept") field->selectAll();
            for (const QChar letter : does == "type" ? name : answer == "accept" ? "" : answer)
                QTest::keyClick(Keyboard(), letter.toLatin1());
            if (does != "type") Press("Return");
        };
    }
    static void Press(const QString& key) {
        const QKeyCombination keys = QKeySequence(key)[0];
        QTest::keyClick(Keyboard(), keys.key(), keys.keyboardModifiers());
    }
    /// Clicks as the mouse does, which a list that has popped up takes first.
    static void Click(const QWidget* widget, QPoint place) {
        const QPoint inWindow = widget->mapTo(widget->window(), place);
        QTest::mouseClick(widget->window()->windowHandle(), Qt::LeftButton, {}, inWindow);
    }
    static void Drag(std::pair<QWidget*, QPoint> from, QPoint to) {
        QWindow* window = from.first->window()->windowHandle(); // dragging takes events of windows alone
        const QPoint corner = from.first->mapTo(from.first->window(), QPoint());
        QTest::mousePress(window, Qt::LeftButton, {}, corner + from.second);
        QTimer::singleShot(50, window, [=] { QTest::mouseRelease(window, Qt::LeftButton, {}, corner + to); });
        for (const int part : {2, 1})
            QTest::mouseMove(window, corner + (from.second + to * (3 - part)) / (4 - part));
    }

    QString Dialogs;
    int LooksInVain = 0;
    QTimer Watch;
};

} // namespace morvane
