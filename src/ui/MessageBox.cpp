#include "MessageBox.h"

#include "Text.h"

#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>

namespace ui {

namespace {

// Texts from this length on hold long paths; they get a wide box and may break anywhere.
constexpr int LongText = 400;
constexpr int WideBox = 700;

QString Breakable(const QString& text) {
    constexpr QChar ZeroWidthSpace(0x200B);
    QString result;
    for (const QChar c : text) {
        result += c;
        if (!c.isSpace() && !c.isHighSurrogate()) result += ZeroWidthSpace;
    }
    return result;
}

} // namespace

void ShowMessageBox(QWidget* owner, const std::string& title, const std::string& text, BoxIcon icon) {
    QMessageBox box(owner);
    box.setWindowTitle(FromBytes(title));
    box.setTextFormat(Qt::PlainText);
    const QString shown = FromBytes(text).replace("\r\n", "\n");
    box.setText(shown.size() < LongText ? shown : Breakable(shown));
    auto* label = box.findChild<QLabel*>("qt_msgbox_label");
    if (label != nullptr && shown.size() >= LongText) label->setMinimumWidth(WideBox);
    box.setIcon(icon == BoxIcon::Critical ? QMessageBox::Critical : QMessageBox::NoIcon);
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

BusyPointer::BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }

void BusyPointer::Restore() {
    if (Busy) QGuiApplication::restoreOverrideCursor();
    Busy = false;
}

} // namespace ui
