#include "Fonts.h"
#include "Frame.h"
#include "frmMain.h"

#include <QApplication>
#include <QIcon>
#include <QMenuBar>

namespace morvane {

namespace {

constexpr QSize ClientArea(617, 488);

constexpr std::array<const char*, 3> ViewCaptions{"Maps", "Walls/Sprites", "Sounds"};

} // namespace

void frmMain::BuildWidgets() {
    setWindowTitle("Morvane Extractor");
    QIcon icon;
    for (const char* image : {":/icons/16.png", ":/icons/32.png"}) icon.addFile(image);
    QApplication::setWindowIcon(icon); // dialogs of start-up stand alone

    auto* client = new QWidget(this); // without a layout: nothing moves when the window's size changes
    client->setFont(ui::WindowFont());
    setCentralWidget(client);
    QFont captionFont = client->font();
    captionFont.setBold(true);
    for (std::size_t i = 0; i < fra.size(); ++i) {
        fra[i] = new ui::Frame(ViewCaptions[i], client);
        fra[i]->setObjectName("fra" + QString::number(i));
        fra[i]->setFont(captionFont);
        // Side by side, as designed; start-up stacks them on the place of the first.
        fra[i]->setGeometry(8 + ClientArea.width() * static_cast<int>(i), 8, 601, 473);
        fra[i]->setEnabled(false);
        fra[i]->setVisible(i == 0);
    }

    lstMap = AddListBox(fra[0], "lstMap", "Maps", {8, 16, 129, 446});
    picMap = AddPictureBox(fra[0], "picMap", {144, 16, 448, 448});
    lstGroup = AddListBox(fra[1], "lstGroup", "Groups", {8, 16, 81, 446});
    lstImage = AddListBox(fra[1], "lstImage", "Images", {96, 16, 41, 446});
    pic = AddPictureBox(fra[1], "pic", {144, 16, 321, 113});
    lbl = new QLabel("Codes of unknown meaning", fra[1]);
    lbl->setObjectName("lbl");
    lbl->setFont(ui::WindowFont());
    lbl->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lbl->setGeometry(144, 160, 185, 21);
    txt = new ui::TextBox(fra[1]);
    txt->setObjectName("txt");
    txt->setAccessibleName(lbl->text());
    txt->setFont(ui::CodesFont());
    txt->setGeometry(144, 176, 321, 173);
    lstSound = AddListBox(fra[2], "lstSound", "Sounds", {8, 16, 89, 446});
}

ui::ListBox* frmMain::AddListBox(QWidget* frame, const char* name, const char* spoken, QRect place) {
    auto* list = new ui::ListBox(frame);
    list->setObjectName(name);
    list->setAccessibleName(spoken);
    list->setFont(ui::WindowFont());
    list->setGeometry(place);
    return list;
}

ui::PictureBox* frmMain::AddPictureBox(QWidget* frame, const char* name, QRect place) {
    auto* box = new ui::PictureBox(frame);
    box->setObjectName(name);
    box->setGeometry(place);
    return box;
}

void frmMain::BuildMenus() {
    menuBar()->setNativeMenuBar(false);
    // An item whose command is run as one of the user's, and which ends as `undo` says when that fails.
    const auto add = [this](ui::Menu& menu, const QString& name, const QString& caption,
                            const QString& shortcut, std::function<void()> command,
                            std::function<void()> undo = {}) {
        return menu.AddItem(
            name, caption, shortcut,
            [this, command = std::move(command), undo = std::move(undo)] { FromUser(command, undo); });
    };
    mnuFile.emplace(menuBar(), "mnuFile", "&File");
    add(*mnuFile, "mnuFileOpen", "&Open", "Ctrl+O", [this] { mnuFileOpen_Click(); });
    mnuFile->AddSeparator();
    mnuFileExport = add(*mnuFile, "mnuFileExport", "&Export", "", [this] { mnuFileExport_Click(); });
    mnuFileExportAll =
        add(*mnuFile, "mnuFileExportAll", "Export All", "", [this] { mnuFileExportAll_Click(); });
    mnuFile->AddSeparator();
    add(*mnuFile, "mnuFileExit", "E&xit", "", [this] { mnuFileExit_Click(); });

    mnuView.emplace(menuBar(), "mnuView", "&View");
    constexpr std::array<std::array<const char*, 2>, 3> Frames{
        {{"&Maps", "Ctrl+M"}, {"&Walls/Sprites", "Ctrl+W"}, {"&Sounds", "Ctrl+D"}}};
    for (int i = 0; QAction * &item : mnuViewEpisode) {
        const QString index = QString::number(i), number = QString::number(i + 1);
        // What fails leaves the tables of two episodes.
        item = add(
            *mnuView, "mnuViewEpisode" + index, "Episode &" + number, "Ctrl+Shift+F" + number,
            [this, i] { mnuViewEpisode_Click(i); }, [this] { EnableControls(false); });
        item->setCheckable(true);
        item->setEnabled(i++ == 0);
    }
    mnuView->AddSeparator();
    for (int i = 0; QAction * &item : mnuViewFrame) {
        const auto& [caption, shortcut] = Frames[static_cast<std::size_t>(i)];
        item = add(*mnuView, "mnuViewFrame" + QString::number(i), caption, shortcut,
                   [this, i] { mnuViewFrame_Click(i); });
        item->setCheckable(true);
        ++i;
    }
    // The client area has its size below the menu bar; later nothing forbids a smaller one.
    centralWidget()->setMinimumSize(ClientArea);
    resize(sizeHint());
    centralWidget()->setMinimumSize(0, 0);
}

void frmMain::ConnectLists() {
    lstMap->Handler = [this] { lstMap_Click(); };
    lstGroup->Handler = [this] { lstGroup_Click(); };
    lstImage->Handler = [this] { lstImage_Click(); };
    lstSound->Handler = [] {};

    // A selection that fails goes back to the entry that is still shown.
    for (ui::ListBox* list : {lstMap, lstImage})
        connect(list, &ui::ListBox::UserSelected, this, [this, list](int previous) {
            FromUser(list->Handler, [list, previous] { list->ShowSelected(previous); });
        });
    connect(lstGroup, &ui::ListBox::UserSelected, this, [this](int previous) {
        const std::vector<ui::ListItem> images = lstImage->Items();
        const int image = lstImage->ListIndex();
        FromUser(lstGroup->Handler, [this, previous, images, image] {
            lstGroup->ShowSelected(previous);
            lstImage->SetItems(images);
            lstImage->ShowSelected(image);
        });
    });
}

} // namespace morvane
