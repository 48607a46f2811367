#include "MessageBox.h"

#include "Text.h"

#include <QGuiApplication>
#include <QMessageBox>

namespace ui {

namespace {

// Lets long runs without a blank, such as paths, break behind their separators.
QString Breakable(QString text) {
    constexpr int Long = 400;
    if (text.size() < Long) return text;
    constexpr QChar ZeroWidthSpace(0x200B);
    QString result;
    int run = 0;
    for (const QChar c : std::as_const(text)) {
        result += c;
        run = c.isSpace() ? 0 : run + 1;
        if (run >= 60) {
            result += ZeroWidthSpace;
            run = 0;
        }
    }
    return result;
}

} // namespace

void ShowMessageBox(QWidget* owner, const std::string& title, const std::string& text, BoxIcon icon) {
    QMessageBox box(owner);
    box.setWindowTitle(FromBytes(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(Breakable(FromBytes(text).replace("\r\n", "\n")));
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
