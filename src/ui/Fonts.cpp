#include "Fonts.h"

#include <QStringList>

namespace ui {

namespace {

QFont FontOf(const QStringList& families, QFont::StyleHint hint, int pixels) {
    QFont font;
    font.setFamilies(families);
    font.setStyleHint(hint);
    font.setPixelSize(pixels);
    font.setWeight(QFont::Normal);
    font.setItalic(false);
    return font;
}

} // namespace

QFont WindowFont() {
    const QStringList families{"MS Sans Serif", "Microsoft Sans Serif", "Liberation Sans", "Arial",
                               "Helvetica",     "DejaVu Sans"};
    return FontOf(families, QFont::SansSerif, 11);
}

QFont CodesFont() {
    const QStringList families{"Terminal", "Liberation Mono", "DejaVu Sans Mono", "Courier New"};
    return FontOf(families, QFont::Monospace, 12);
}

} // namespace ui
