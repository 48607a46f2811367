#include "MessageBox.h"

#include "Text.h"

#include <QGridLayout>
#include <QTextLayout>

#include <algorithm>

namespace ui {

namespace {

/// A word in pieces of a width in pixels, each on a line of its own.
QString Broken(const QString& word, const QFont& font, int width) {
    QTextOption anywhere;
    anywhere.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(word, font);
    layout.setTextOption(anywhere);
    QStringList pieces;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        pieces += word.mid(line.textStart(), line.textLength());
    }
    layout.endLayout();
    return pieces.join('\n');
}

/// The text with its long words broken, as names and paths can be. The box itself breaks between words.
QString WithBrokenWords(const QString& text, const QFont& font) {
    // With icon and margins this fits any box. Paths of thousands of letters take wider and then more lines.
    const int width = std::clamp(QFontMetrics(font).horizontalAdvance(text) / 20, 400, 750);
    QStringList lines = text.split('\n');
    for (QString& line : lines) {
        QStringList words = line.split(' ');
        for (QString& word : words) word = Broken(word, font, width);
        line = words.join(' ');
    }
    return lines.join('\n');
}

int Run(QWidget* owner, const std::string& title, const std::string& text, QMessageBox::Icon icon,
        QMessageBox::StandardButtons buttons, QMessageBox::StandardButton preset) {
    QMessageBox box(icon, FromBytes(title), {}, buttons, ShownOwner(owner));
    box.setTextFormat(Qt::PlainText);
    box.setText(WithBrokenWords(FromBytes(text).replace("\r\n", "\n"), box.font()));
    box.setDefaultButton(preset);
    // A short text alone would leave no room for the caption.
    constexpr int CaptionButtons = 120;
    const int width = box.fontMetrics().horizontalAdvance(box.windowTitle()) + CaptionButtons;
    auto* layout = static_cast<QGridLayout*>(box.layout());
    layout->addItem(new QSpacerItem(width, 0), layout->rowCount(), 0, 1, layout->columnCount());
    return RunModal(box);
}

} // namespace

QWidget* ShownOwner(QWidget* owner) { return owner != nullptr && owner->isVisible() ? owner : nullptr; }

int RunModal(QDialog& dialog) {
    const int result = dialog.exec();
    if (dialog.parentWidget() != nullptr) dialog.parentWidget()->activateWindow();
    return result;
}

void ShowMessageBox(QWidget* owner, const std::string& title, const std::string& text,
                    QMessageBox::Icon icon) {
    Run(owner, title, text, icon, QMessageBox::Ok, QMessageBox::Ok);
}

bool AskInBox(QWidget* owner, const std::string& title, const std::string& text, QMessageBox::Icon icon,
              bool yesIsPreset) {
    return Run(owner, title, text, icon, QMessageBox::Yes | QMessageBox::No,
               yesIsPreset ? QMessageBox::Yes : QMessageBox::No) == QMessageBox::Yes;
}

} // namespace ui
