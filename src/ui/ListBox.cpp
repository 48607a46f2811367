#include "ListBox.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

namespace ui {

namespace {

constexpr int RowHeight = 13;
constexpr int TextMargin = 2;

// Draws an entry in a row of the fixed layout; narrow lists keep every digit.
class RowPainter : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                                 const QModelIndex& /*index*/) const override {
        return {1, RowHeight};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const bool selected = (option.state & QStyle::State_Selected) != 0;
        const bool enabled = (option.state & QStyle::State_Enabled) != 0;
        const bool active = (option.state & QStyle::State_Active) != 0;
        const auto group = !enabled ? QPalette::Disabled : active ? QPalette::Active : QPalette::Inactive;
        if (selected) painter->fillRect(option.rect, option.palette.brush(group, QPalette::Highlight));
        painter->setFont(option.font);
        painter->setPen(option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(option.rect.adjusted(TextMargin, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                          index.data().toString());
        if ((option.state & QStyle::State_HasFocus) != 0) {
            QStyleOptionFocusRect focus;
            focus.initFrom(option.widget);
            focus.rect = option.rect;
            focus.backgroundColor =
                option.palette.color(group, selected ? QPalette::Highlight : QPalette::Base);
            option.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, option.widget);
        }
    }
};

bool Navigates(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Space:
        return true;
    default:
        return false;
    }
}

} // namespace

class ListBox::Model : public QAbstractListModel {
  public:
    using QAbstractListModel::QAbstractListModel;

    void Set(std::vector<ListItem> items) {
        beginResetModel();
        All = std::move(items);
        endResetModel();
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(All.size());
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole || !index.isValid()) return {};
        return QString::fromStdString(All[static_cast<std::size_t>(index.row())].Text);
    }

    std::vector<ListItem> All;
};

ListBox::ListBox(QWidget* parent) : QListView(parent), Entries(new Model(this)) {
    setModel(Entries);
    setItemDelegate(new RowPainter(this));
    setUniformItemSizes(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setLineWidth(2);
}

ListBox::~ListBox() = default;

void ListBox::SetItems(std::vector<ListItem> items) {
    const QScopedValueRollback<bool> byProgram(ByProgram, true);
    Entries->Set(std::move(items));
}

const std::vector<ListItem>& ListBox::Items() const { return Entries->All; }

int ListBox::ListIndex() const { return currentIndex().isValid() ? currentIndex().row() : -1; }

void ListBox::Select(int index) {
    ShowSelected(index);
    Handler();
}

void ListBox::ShowSelected(int index) {
    const QScopedValueRollback<bool> byProgram(ByProgram, true);
    setCurrentIndex(Entries->index(index));
    if (index < 0) clearSelection();
}

void ListBox::DuringUserEvent(const std::function<void()>& base, bool selectsAnyway) {
    const int previous = ListIndex();
    Changed = false;
    {
        const QScopedValueRollback<bool> inEvent(InUserEvent, true);
        base();
    }
    if (ListIndex() >= 0 && (Changed || selectsAnyway)) emit UserSelected(previous);
}

void ListBox::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    DuringUserEvent([&] { QListView::mousePressEvent(event); }, indexAt(event->pos()).isValid());
}

void ListBox::mouseMoveEvent(QMouseEvent* event) {
    DuringUserEvent([&] { QListView::mouseMoveEvent(event); }, false);
}

void ListBox::mouseReleaseEvent(QMouseEvent* event) {
    DuringUserEvent([&] { QListView::mouseReleaseEvent(event); }, false);
}

// The second press of a double click selects like any other.
void ListBox::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void ListBox::keyPressEvent(QKeyEvent* event) {
    DuringUserEvent([&] { QListView::keyPressEvent(event); }, Navigates(*event));
}

void ListBox::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    if (ByProgram) return;
    Changed = true;
    if (!InUserEvent && current.isValid()) emit UserSelected(previous.isValid() ? previous.row() : -1);
}

QItemSelectionModel::SelectionFlags ListBox::selectionCommand(const QModelIndex& index,
                                                              const QEvent* event) const {
    const bool released = event != nullptr && event->type() == QEvent::MouseButtonRelease;
    return index.isValid() && !released ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

} // namespace ui
