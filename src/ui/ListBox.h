#pragma once

#include <QListWidget>

#include <functional>
#include <string>
#include <vector>

namespace ui {

struct ListItem {
    std::string Text;
    int Data = 0;
};

/// A plain list of which one entry can be selected, unsorted, with a number carried by each entry.
///
/// Selecting an entry, by mouse, key or program, runs its handler, also when the entry was selected already.
/// A selection made by the program runs it directly and lets its failures through to the caller; one made by
/// the user announces itself with UserSelected instead.
class ListBox : public QListWidget {
    Q_OBJECT

  public:
    explicit ListBox(QWidget* parent);

    void SetItems(const std::vector<ListItem>& items); ///< nothing is selected afterwards
    /// Sets the entries and selects the first, which runs Handler. Returns false when there is none.
    bool Fill(const std::vector<ListItem>& items);
    [[nodiscard]] std::vector<ListItem> Items() const;

    [[nodiscard]] int ListIndex() const { return currentRow(); } ///< position of the selected entry, or -1
    /// The number of the selected entry, of which there must be one.
    [[nodiscard]] int SelectedData() const { return currentItem()->data(Qt::UserRole).toInt(); }

    void ShowSelected(int index); ///< selects (-1: nothing) and runs nothing

    std::function<void()> Handler;

  signals:
    /// The user has selected an entry; previous is the position that was selected before, or -1.
    void UserSelected(int previous);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;

  private:
    void HandleAndAnnounce(const std::function<void()>& handle, bool selects);
};

} // namespace ui
