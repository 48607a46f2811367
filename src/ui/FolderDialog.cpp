#include "FolderDialog.h"

#include "Text.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTreeWidget>

#include <algorithm>
#include <filesystem>
#include <vector>

namespace ui {

namespace {

namespace fs = std::filesystem;

bool IsFolder(const std::string& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

// The names of the folders in a folder, sorted; hidden ones are left out. None when it cannot be read.
std::vector<std::string> FolderNames(const std::string& path) {
    std::vector<std::string> names;
    std::error_code error;
    fs::directory_iterator entry(path, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (!name.starts_with('.') && IsFolder(entry->path().string())) names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

class FolderItem : public QTreeWidgetItem {
  public:
    FolderItem(const std::string& name, std::string path) : Path(std::move(path)) {
        setText(0, FromBytes(name));
        setChildIndicatorPolicy(ShowIndicator);
    }

    // Adds the folders inside, when that has not been done yet.
    void Load() {
        if (Loaded) return;
        Loaded = true;
        for (const std::string& name : FolderNames(Path)) addChild(new FolderItem(name, ChildPath(name)));
        if (childCount() == 0) setChildIndicatorPolicy(DontShowIndicatorWhenChildless);
    }

    [[nodiscard]] std::string ChildPath(const std::string& name) const {
        return (fs::path(Path) / name).string();
    }

    // The item of a folder inside, hidden ones included; nullptr when there is no such folder.
    FolderItem* Child(const std::string& name) {
        Load();
        const std::string path = ChildPath(name);
        for (int i = 0; i < childCount(); ++i) {
            auto* item = static_cast<FolderItem*>(child(i));
            if (item->Path == path) return item;
        }
        if (!IsFolder(path)) return nullptr;
        addChild(new FolderItem(name, path));
        return static_cast<FolderItem*>(child(childCount() - 1));
    }

    std::string Path;

  private:
    bool Loaded = false;
};

class FolderDialog : public QDialog {
  public:
    FolderDialog(QWidget* owner, const std::string& title, bool newStyle) : QDialog(owner) {
        setWindowTitle("Browse For Folder");
        auto* layout = new QVBoxLayout(this);
        if (!title.empty()) {
            auto* heading = new QLabel(FromBytes(title), this);
            heading->setObjectName("title");
            heading->setTextFormat(Qt::PlainText);
            layout->addWidget(heading);
        }
        BuildTree();
        layout->addWidget(&Tree);
        auto* pathRow = new QHBoxLayout;
        auto* label = new QLabel("&Folder:", this);
        label->setBuddy(&PathText);
        pathRow->addWidget(label);
        pathRow->addWidget(&PathText);
        layout->addLayout(pathRow);
        layout->addWidget(&Complaint);
        BuildButtons(newStyle);
        layout->addWidget(&Buttons);
        resize(360, 420);
        if (!newStyle) setFixedSize(size());
    }

    void Start(const std::string& folder) {
        const bool usable = !folder.empty() && IsFolder(folder);
        Show(usable ? folder : ToBytes(QDir::homePath()));
        if (!usable) PathText.setFocus();
    }

    [[nodiscard]] const std::string& Chosen() const { return Path; }

    void accept() override {
        if (!IsFolder(Path)) {
            Complaint.setText("There is no such folder.");
            return;
        }
        std::error_code error;
        const std::string full = fs::absolute(Path, error).string();
        if (!error) Path = full;
        QDialog::accept();
    }

  private:
    void BuildTree() {
        Tree.setHeaderHidden(true);
        Tree.setAccessibleName("Folders");
        for (const QFileInfo& drive : QDir::drives()) {
            const std::string path = ToBytes(QDir::toNativeSeparators(drive.absoluteFilePath()));
            Tree.addTopLevelItem(new FolderItem(path, path));
        }
        connect(&Tree, &QTreeWidget::itemExpanded, this,
                [](QTreeWidgetItem* item) { static_cast<FolderItem*>(item)->Load(); });
        connect(&Tree, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
            if (item != nullptr) TakeFromTree(*static_cast<FolderItem*>(item));
        });
        connect(&PathText, &QLineEdit::textEdited, this, [this](const QString& text) {
            Path = ToBytes(text);
            Complaint.clear();
        });
    }

    void BuildButtons(bool newStyle) {
        Buttons.setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        connect(&Buttons, &QDialogButtonBox::accepted, this, &FolderDialog::accept);
        connect(&Buttons, &QDialogButtonBox::rejected, this, &FolderDialog::reject);
        if (!newStyle) return;
        auto* make = Buttons.addButton("&Make New Folder", QDialogButtonBox::ActionRole);
        make->setAutoDefault(false);
        connect(make, &QPushButton::clicked, this, [this] { MakeFolder(); });
    }

    // The folder chosen is the item's own path, whose bytes the text may be unable to show.
    void TakeFromTree(const FolderItem& item) {
        Path = item.Path;
        PathText.setText(FromBytes(Path));
        Complaint.clear();
    }

    // Opens the tree down to a folder and selects it there. A path that the tree does not lead to stays as
    // given.
    void Show(const std::string& folder) {
        FolderItem* item = nullptr;
        for (int i = 0; i < Tree.topLevelItemCount() && item == nullptr; ++i) {
            auto* root = static_cast<FolderItem*>(Tree.topLevelItem(i));
            if (folder.starts_with(root->Path)) item = root;
        }
        for (const fs::path& part : fs::path(folder).relative_path()) {
            if (item == nullptr) break;
            if (!part.empty()) item = item->Child(part.string());
        }
        if (item != nullptr) {
            Tree.setCurrentItem(item);
            Tree.scrollToItem(item, QAbstractItemView::PositionAtCenter);
        }
        Path = folder;
        PathText.setText(FromBytes(folder));
    }

    void MakeFolder() {
        const QString name = QInputDialog::getText(this, "New Folder", "Name of the new folder:");
        if (name.isEmpty()) return;
        const std::string path = (fs::path(Path) / ToBytes(name)).string();
        std::error_code error;
        if (!fs::create_directory(path, error)) {
            Complaint.setText(error ? FromBytes(error.message()) : "That folder exists already.");
            return;
        }
        Show(path);
    }

    QTreeWidget Tree{this};
    QLineEdit PathText{this};
    QLabel Complaint{this};
    QDialogButtonBox Buttons{this};
    std::string Path;
};

} // namespace

std::string BrowseForFolder(const std::string& startFolder, QWidget* owner, const std::string& title,
                            bool newStyle) {
    FolderDialog dialog(owner, title, newStyle);
    dialog.Start(startFolder);
    return dialog.exec() == QDialog::Accepted ? dialog.Chosen() : std::string();
}

} // namespace ui
