#pragma once

#include "SampleGame.h"
#include "frmMain.h"

#include <QMessageBox>
#include <QTimer>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace morvane {

/// A box or dialog that was shown while a test ran.
struct SeenDialog {
    std::string Title;
    std::string Text;
    int Icon = QMessageBox::NoIcon;
    bool OwnerVisible = false;
    bool Busy = false; ///< the busy pointer was on
};

/// The real main window with a program folder and a sample game of its own. Modal dialogs are noted and
/// closed as soon as they come up: message boxes with OK, folder dialogs with the next of Folders (cancelled
/// when there is none).
class TestWindow {
  public:
    TestWindow();
    ~TestWindow();
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    /// Starts the program's window anew on the settings that are there, and shows it.
    frmMain& Start();
    /// Writes the sample game and starts on it as the remembered folder.
    frmMain& StartOnSample(const std::vector<int>& episodes = {1, 2, 3});

    void Remember(const std::string& folder) const;
    [[nodiscard]] std::string SettingsPath() const { return ProgramFolder / "viewer.ini"; }

    /// Presses keys as a user would ("Ctrl+W") and handles what follows.
    static void Press(QWidget& widget, const char* keys);
    static void Click(ui::ListBox& list, int index);

    /// The dialogs seen since the last call.
    std::vector<SeenDialog> TakeSeen() { return std::exchange(Seen, {}); }

    TempFolder ProgramFolder;
    TempFolder GameDir;
    SampleGame Sample;
    std::vector<std::string> Folders;     ///< answers to folder dialogs, in turn
    std::string LastStartFolder;          ///< what the last folder dialog proposed
    std::function<bool(QWidget&)> Answer; ///< handles a dialog in place of the above when it returns true
    std::unique_ptr<frmMain> Window;

  private:
    void Look();

    std::vector<SeenDialog> Seen;
    QTimer Watch;
};

/// The arguments of the test program that are not the test framework's.
const std::vector<std::string>& TestArguments();

/// The state of the window in one line: enabled frames, View menu, exports, visible frame, marks.
std::string StateOf(const frmMain& window);

} // namespace morvane
