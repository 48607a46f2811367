#include "MessageBox.h"

#include "Text.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QMessageBox>
#include <QRegularExpression>

#include <array>

namespace ui {

QWidget* ShownOwner(QWidget* owner) { return owner != nullptr && owner->isVisible() ? owner : nullptr; }

void ShowMessageBox(QWidget* owner, const std::string& title, const std::string& text, BoxIcon icon) {
    constexpr std::array Icons{QMessageBox::NoIcon, QMessageBox::Warning, QMessageBox::Critical};
    const QRegularExpression longName(R"(([^\s/\\]{100})(?=[^\s/\\]))");
    QMessageBox box(ShownOwner(owner));
    box.setWindowTitle(FromBytes(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(FromBytes(text).replace("\r\n", "\n").replace(longName, "\\1\n"));
    box.setIcon(Icons[static_cast<std::size_t>(icon)]);
    box.setStandardButtons(QMessageBox::Ok);
    // A short text alone would leave no room for the caption.
    constexpr int CaptionButtons = 120;
    const int width = box.fontMetrics().horizontalAdvance(box.windowTitle()) + CaptionButtons;
    auto* layout = static_cast<QGridLayout*>(box.layout());
    layout->addItem(new QSpacerItem(width, 0), layout->rowCount(), 0, 1, layout->columnCount());
    box.exec();
}

BusyPointer::BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }

void BusyPointer::Restore() {
    if (Busy) QGuiApplication::restoreOverrideCursor();
    Busy = false;
}

} // namespace ui
