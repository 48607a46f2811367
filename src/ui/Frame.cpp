#include "Frame.h"

#include "PictureBox.h"

#include <QPainter>

namespace ui {

void Frame::paintEvent(QPaintEvent* /*event*/) {
    constexpr int CaptionLeft = 9;
    constexpr int CaptionGap = 2;
    QPainter painter(this);
    const QFontMetrics metrics(font());
    const int edge = metrics.height() / 2;
    const QColor window = palette().color(QPalette::Window);
    const QColor dark = window.lightness() > 127 ? window.darker(150) : window.lighter(220);
    const QColor light = window.lightness() > 127 ? window.lighter(115) : window.darker(130);
    painter.setPen(light);
    painter.drawRect(QRect(1, edge + 1, width() - 2, height() - edge - 2));
    painter.setPen(dark);
    painter.drawRect(QRect(0, edge, width() - 2, height() - edge - 2));

    const QRect caption(CaptionLeft, 0, metrics.horizontalAdvance(title()), metrics.height());
    painter.fillRect(caption.adjusted(-CaptionGap, 0, CaptionGap, 0), window);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(caption, Qt::AlignLeft | Qt::TextDontClip, title());

    const auto* picture = dynamic_cast<const PictureBox*>(focusWidget());
    if (picture != nullptr && picture->hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(picture->geometry().adjusted(-2, -2, 2, 2));
    }
}

} // namespace ui
