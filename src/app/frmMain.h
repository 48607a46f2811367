#pragma once

#include "Failure.h"
#include "File.h"
#include "GameFolder.h"
#include "ImageArchive.h"
#include "InterfaceFile.h"
#include "ListBox.h"
#include "MapArchive.h"
#include "Menu.h"
#include "Paths.h"
#include "Picture.h"
#include "PictureBox.h"
#include "SoundArchive.h"
#include "clsINI.h"

#include <QGroupBox>
#include <QLabel>
#include <QMainWindow>
#include <QPlainTextEdit>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace morvane {

/// The main window. It owns the state of the loaded game; the commands and handlers carry the names of what
/// starts them. A failure leaves a command or handler as a Failure, unless its comment says otherwise.
class frmMain : public QMainWindow {
  public:
    /// The program whose folder holds the symbol files and the settings file.
    explicit frmMain(Program program);
    ~frmMain() override;

    /// Start-up, before the window is shown: opens the remembered game folder or asks for one. Throws
    /// nothing.
    void Form_Load();

    // File menu
    void mnuFileOpen_Click();
    void mnuFileExport_Click();
    void mnuFileExportAll_Click();
    void mnuFileExit_Click();

    // View menu; indexes 0 to 2
    void mnuViewEpisode_Click(int index);
    void mnuViewFrame_Click(int index);

    /// Opens the folder in Game.GamePath: palette, interface file, sounds, episode 1. True when all of it is
    /// loaded; a failure is reported here and gives false.
    bool OpenGameFolder();

    /// Enables frames, exports and View menu, or disables them and empties lists and pictures.
    void EnableControls(bool enabled);

    // Loaders: refill a list of theirs and select its first entry. The archives of an episode give false when
    // their list stays empty.
    void LoadSoundArchive();
    bool LoadImageArchive();
    bool LoadMapArchive();

    // Selections
    void lstMap_Click();
    void lstGroup_Click();
    void lstImage_Click();

    /// Draws the map selected in lstMap into picMap.
    void DrawMap();

    /// Write every image of the episode, or every recognised sound, into a folder.
    void ExportAllImages(const std::string& folder);
    void ExportAllSounds(const std::string& folder);

    /// Shows PendingError in a box, if there is one.
    void ReportError();

    /// Writes a whole file, deleting one of that name first. False when there is one and overwrite is false;
    /// it is then left alone. What cannot be deleted, created, written or closed raises the file system's
    /// failure.
    static bool WriteByteArray(const std::string& fileName, ConstBytes bytes, bool overwrite);

    GameFolder Game;                      ///< GamePath and CurrentEpisode
    std::int32_t CurrentView = 0;         ///< 0 Maps, 1 Walls/Sprites, 2 Sounds
    std::unique_ptr<clsINI> SettingsFile; ///< from Form_Load until the window is closed
    std::optional<Failure> PendingError;

    ImageGroups Groups;                         ///< of the current episode
    std::vector<std::uint8_t> CurrentImageFile; ///< BMP bytes of the image shown last
    InterfaceTable InterfaceEntries;
    std::vector<MapEntry> MapDirectory; ///< of the current episode
    MapCellTable MapCells{};            ///< of the map drawn last
    SoundTable SoundEntries;

    std::array<QGroupBox*, 3> fra{};
    ui::ListBox* lstMap = nullptr;
    ui::PictureBox* picMap = nullptr;
    ui::ListBox* lstGroup = nullptr;
    ui::ListBox* lstImage = nullptr;
    ui::PictureBox* pic = nullptr;
    QLabel* lbl = nullptr;
    QPlainTextEdit* txt = nullptr;
    ui::ListBox* lstSound = nullptr;

    std::optional<ui::Menu> mnuFile;
    std::optional<ui::Menu> mnuView;
    QAction* mnuFileExport = nullptr;
    QAction* mnuFileExportAll = nullptr;
    std::array<QAction*, 3> mnuViewEpisode{};
    std::array<QAction*, 3> mnuViewFrame{};

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    /// The gate for what a user's event starts: runs it, reports the failure it ends in, and throws nothing.
    /// What undo does then comes before the report.
    void FromUser(const std::function<void()>& command, const std::function<void()>& undo = {}) noexcept;

    void Form_Unload();
    void LoadGame(); // the steps of OpenGameFolder that may fail

    void ExportImage();
    void ExportSound();

    // frmMainLayout.cpp
    void BuildWidgets();
    void BuildMenus();
    void ConnectLists();
    ui::ListBox* AddListBox(QWidget* frame, const char* name, const char* spoken, QRect place);
    ui::PictureBox* AddPictureBox(QWidget* frame, const char* name, QRect place);

    Program ThisProgram;
    Picture MapPicture;   // what picMap shows
    Picture ImagePicture; // what pic shows
};

} // namespace morvane
