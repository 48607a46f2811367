#pragma once

#include <QPlainTextEdit>

#include <string>

namespace ui {

/// A box of several lines of text that can be selected and copied, not edited.
class TextBox : public QPlainTextEdit {
  public:
    explicit TextBox(QWidget* parent);

    void SetText(const std::string& text) { setPlainText(QString::fromStdString(text)); }

  protected:
    /// Ctrl and the wheel scroll as the wheel alone does; the toolkit would change the font.
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace ui
