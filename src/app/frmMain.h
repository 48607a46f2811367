#pragma once

#include "Failure.h"
#include "ListBox.h"
#include "LoadedGame.h"
#include "Menu.h"
#include "Paths.h"
#include "PictureBox.h"
#include "TextBox.h"
#include "clsINI.h"

#include <QGroupBox>
#include <QLabel>
#include <QMainWindow>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace morvane {

/// The main window. It owns the loaded game; commands and handlers carry the names of what starts them, and
/// widgets their names as object names.
class frmMain : public QMainWindow {
  public:
    /// The program whose folder holds the symbol files and the settings file.
    explicit frmMain(Program program);

    /// Starts up, before the window is shown: opens the remembered game folder or asks for one. Throws
    /// nothing.
    void Form_Load();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    // A failure leaves a command or handler as an exception, unless its comment says otherwise.

    void mnuFileOpen_Click();
    void mnuFileExport_Click();
    void mnuFileExportAll_Click();
    void mnuFileExit_Click();
    void mnuViewEpisode_Click(int index);
    void mnuViewFrame_Click(int index);
    void lstMap_Click();
    void lstGroup_Click();
    void lstImage_Click();
    void Form_Unload();

    /// Runs what an event of the user starts, and reports the failure that it ends in. On failure calls
    /// `undo`, then shows the error. The gate through which every such event enters: it throws nothing.
    void FromUser(const std::function<void()>& command, const std::function<void()>& undo = {}) noexcept;

    /// Opens the folder in GamePath: palette, interface file, sounds, episode 1. True when all of it is
    /// loaded; a failure is reported here and gives false.
    bool OpenGameFolder();
    void LoadGame(); ///< the steps of OpenGameFolder that may fail

    /// Enables frames, exports and View menu, or disables them and empties lists and pictures.
    void EnableControls(bool enabled);

    /// Reads the sounds into their list and selects the first one.
    void LoadSoundArchive();
    /// Reads the episode's images or maps into their list and selects the first entry. Returns false when the
    /// list stays empty.
    bool LoadImageArchive();
    bool LoadMapArchive();

    /// Draws the map selected in lstMap into picMap.
    void DrawMap();

    void ExportImage();
    void ExportSound();

    /// Shows PendingError in a box, if there is one.
    void ReportError();

    // frmMainLayout.cpp
    void BuildWidgets();
    void BuildMenus();
    void ConnectLists();
    ui::ListBox* AddListBox(QWidget* frame, const char* name, const char* spoken, QRect place);
    ui::PictureBox* AddPictureBox(QWidget* frame, const char* name, QRect place);

    Program ThisProgram;
    std::unique_ptr<clsINI> SettingsFile; ///< from Form_Load until the window is closed
    std::optional<Failure> PendingError;

    /// While the controls are enabled, all tables here, all lists and both pictures belong to its GamePath
    /// and CurrentEpisode. Whatever leaves them apart disables the controls; an open whose
    /// first episode lists nothing leaves empty lists. While a group without images is selected, picture and
    /// codes are those of the image shown last.
    LoadedGame Game;
    std::int32_t CurrentView = 0;               ///< 0 Maps, 1 Walls/Sprites, 2 Sounds
    std::vector<std::uint8_t> CurrentImageFile; ///< BMP bytes of the image shown last

    std::array<QGroupBox*, 3> fra{};
    ui::ListBox* lstMap = nullptr;
    ui::PictureBox* picMap = nullptr;
    ui::ListBox* lstGroup = nullptr;
    ui::ListBox* lstImage = nullptr;
    ui::PictureBox* pic = nullptr;
    QLabel* lbl = nullptr;
    ui::TextBox* txt = nullptr;
    ui::ListBox* lstSound = nullptr;

    std::optional<ui::Menu> mnuFile;
    std::optional<ui::Menu> mnuView;
    QAction* mnuFileExport = nullptr;
    QAction* mnuFileExportAll = nullptr;
    std::array<QAction*, 3> mnuViewEpisode{};
    std::array<QAction*, 3> mnuViewFrame{};
};

} // namespace morvane
