#include "PictureBox.h"

namespace ui {

PictureBox::PictureBox(QWidget* parent) : QLabel(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void PictureBox::Show(const std::vector<std::uint32_t>& pixels, int width, int height,
                      const std::string& description) {
    const QImage image(reinterpret_cast<const uchar*>(pixels.data()), width, height, qsizetype{4} * width,
                       QImage::Format_RGB32);
    setPixmap(QPixmap::fromImage(image.copy()));
    setAccessibleName(QString::fromStdString(description));
}

void PictureBox::Remove() {
    clear();
    setAccessibleName("Nothing");
}

/// The frame around draws the mark of the focus, so that it covers nothing of the picture.
void PictureBox::focusInEvent(QFocusEvent* /*event*/) { parentWidget()->update(); }
void PictureBox::focusOutEvent(QFocusEvent* /*event*/) { parentWidget()->update(); }

} // namespace ui
