#pragma once

#include <QListView>

#include <functional>
#include <string>
#include <vector>

namespace ui {

struct ListItem {
    std::string Text;
    int Data = 0;

    bool operator==(const ListItem&) const = default;
};

/// A plain list of which one entry can be selected, unsorted, with a number carried by each entry.
///
/// Selecting an entry, by mouse, key or program, runs its handler, also when the entry was selected already.
/// A selection made by the program runs it directly and lets its failures through to the caller; one made by
/// the user announces itself with UserSelected instead.
class ListBox : public QListView {
    Q_OBJECT

  public:
    explicit ListBox(QWidget* parent);
    ~ListBox() override;

    void SetItems(std::vector<ListItem> items); ///< nothing is selected afterwards
    void Clear() { SetItems({}); }

    [[nodiscard]] const std::vector<ListItem>& Items() const;
    [[nodiscard]] int Count() const { return static_cast<int>(Items().size()); }
    [[nodiscard]] int ListIndex() const; ///< position of the selected entry; -1 when none is
    /// The number of the selected entry, of which there must be one.
    [[nodiscard]] int SelectedData() const { return Items()[static_cast<std::size_t>(ListIndex())].Data; }

    void Select(int index);       ///< selects and runs Handler
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
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;

  private:
    class Model;

    void DuringUserEvent(const std::function<void()>& base, bool selectsAnyway);

    Model* Entries;
    bool ByProgram = false;   // selections are the program's own
    bool InUserEvent = false; // a change of the selection is announced when the event has been handled
    bool Changed = false;
};

} // namespace ui
