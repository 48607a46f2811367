#include "ListBox.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace ui {

namespace {

constexpr int RowHeight = 13;
constexpr int TextMargin = 2;

/// What marks the selection of a list without the focus: plainly seen, and light enough for text of the base.
QColor Mixed(const QColor& highlight, const QColor& base) {
    const auto part = [](int a, int b) { return (2 * a + 3 * b) / 5; };
    return {part(highlight.red(), base.red()), part(highlight.green(), base.green()),
            part(highlight.blue(), base.blue())};
}

/// Draws an entry in a row of the fixed layout; narrow lists keep every digit.
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
        const bool focused = option.widget->hasFocus();
        const auto group = enabled ? QPalette::Active : QPalette::Disabled;
        const QColor base = option.palette.color(group, QPalette::Base);
        const QColor highlight = option.palette.color(group, QPalette::Highlight);
        const QColor back = !selected ? base : focused ? highlight : Mixed(highlight, base);
        if (selected) painter->fillRect(option.rect, back);
        painter->setFont(option.font);
        painter->setPen(
            option.palette.color(group, selected && focused ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(option.rect.adjusted(TextMargin, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                          index.data().toString());
    }
};

/// True for the arrows, Home, End, the page keys and the space bar.
bool Navigates(const QKeyEvent& event) {
    return (event.key() >= Qt::Key_Home && event.key() <= Qt::Key_PageDown) || event.key() == Qt::Key_Space;
}

} // namespace

ListBox::ListBox(QWidget* parent) : QListWidget(parent) {
    setItemDelegate(new RowPainter(this));
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setLineWidth(2);
}

void ListBox::SetItems(const std::vector<ListItem>& items) {
    clear();
    for (const auto& [text, number] : items)
        (new QListWidgetItem(QString::fromStdString(text), this))->setData(Qt::UserRole, number);
}

bool ListBox::Fill(const std::vector<ListItem>& items) {
    SetItems(items);
    if (items.empty()) return false;
    ShowSelected(0);
    Handler();
    return true;
}

std::vector<ListItem> ListBox::Items() const {
    std::vector<ListItem> items;
    items.reserve(static_cast<std::size_t>(count()));
    for (int i = 0; i < count(); ++i)
        items.push_back({item(i)->text().toStdString(), item(i)->data(Qt::UserRole).toInt()});
    return items;
}

void ListBox::ShowSelected(int index) {
    setCurrentRow(index);
    if (index < 0) clearSelection();
}

/// Handles an event of the user and announces the selection that it made: another entry, or the same one
/// again when the event selects in any case.
void ListBox::HandleAndAnnounce(const std::function<void()>& handle, bool selects) {
    const int previous = ListIndex();
    handle();
    if (ListIndex() >= 0 && (selects || ListIndex() != previous)) emit UserSelected(previous);
}

void ListBox::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    HandleAndAnnounce([&] { QListWidget::mousePressEvent(event); }, indexAt(event->pos()).isValid());
}

void ListBox::mouseMoveEvent(QMouseEvent* event) {
    // Past an end of the list, the entry at that end is meant; the toolkit then scrolls on by itself.
    const QRect last = count() > 0 ? visualItemRect(item(count() - 1)) : QRect();
    const QRect view = viewport()->rect();
    const QPoint at(
        std::clamp(event->pos().x(), view.left(), view.right()),
        std::clamp(event->pos().y(), view.top(), std::max(0, std::min(view.bottom(), last.bottom()))));
    QMouseEvent inside(event->type(), at, event->globalPosition(), event->button(), event->buttons(),
                       event->modifiers());
    HandleAndAnnounce([&] { QListWidget::mouseMoveEvent(&inside); }, false);
}

void ListBox::mouseReleaseEvent(QMouseEvent* event) {
    QListWidget::mouseReleaseEvent(event);
    stopAutoScroll(); // the toolkit would scroll on once more, without the selection
}

/// The second press of a double click selects like any other.
void ListBox::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void ListBox::keyPressEvent(QKeyEvent* event) {
    HandleAndAnnounce([&] { QListWidget::keyPressEvent(event); }, Navigates(*event));
}

QItemSelectionModel::SelectionFlags ListBox::selectionCommand(const QModelIndex& index,
                                                              const QEvent* event) const {
    const bool released = event != nullptr && event->type() == QEvent::MouseButtonRelease;
    return index.isValid() && !released ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

} // namespace ui
