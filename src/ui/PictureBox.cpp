#include "PictureBox.h"

#include <QAccessibleWidget>
#include <QPainter>

namespace ui {

namespace {

QAccessibleInterface* DescribePictureBox(const QString& /*className*/, QObject* object) {
    auto* box = qobject_cast<PictureBox*>(object);
    return box == nullptr ? nullptr : new QAccessibleWidget(box, QAccessible::Graphic);
}

} // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    QAccessible::installFactory(DescribePictureBox);
}

void PictureBox::Show(const std::vector<std::uint32_t>& pixels, int width, int height,
                      const std::string& description) {
    Shown = QImage(reinterpret_cast<const uchar*>(pixels.data()), width, height, qsizetype{4} * width,
                   QImage::Format_RGB32)
                .copy();
    setAccessibleName(QString::fromStdString(description));
    update();
}

void PictureBox::Remove() {
    Shown = {};
    setAccessibleName("Nothing");
    update();
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
    if (!Shown.isNull()) QPainter(this).drawImage(0, 0, Shown);
}

/// The frame around draws the mark of the focus, so that it covers nothing of the picture.
void PictureBox::focusInEvent(QFocusEvent* /*event*/) { parentWidget()->update(); }
void PictureBox::focusOutEvent(QFocusEvent* /*event*/) { parentWidget()->update(); }

} // namespace ui
