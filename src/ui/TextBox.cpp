#include "TextBox.h"

#include <QTextDocument>
#include <QWheelEvent>

namespace ui {

TextBox::TextBox(QWidget* parent) : QPlainTextEdit(parent) {
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFrameStyle(QFrame::Panel | QFrame::Sunken); // a style's own frame loses lines when it is scaled
    setLineWidth(2);
    document()->setDocumentMargin(0);
}

void TextBox::wheelEvent(QWheelEvent* event) {
    event->setModifiers(event->modifiers() & ~Qt::ControlModifier);
    QPlainTextEdit::wheelEvent(event);
}

} // namespace ui
