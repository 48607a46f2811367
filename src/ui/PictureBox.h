#pragma once

#include <QLabel>

#include <cstdint>
#include <string>
#include <vector>

namespace ui {

/// Shows a picture of its own at the picture's size from the top left corner, unscaled: one pixel of the
/// picture for one of the layout. Its accessible name says what is shown.
class PictureBox : public QLabel {
    Q_OBJECT

  public:
    explicit PictureBox(QWidget* parent);

    /// Shows width x height pixels (0xFFRRGGBB, rows without gaps). The description is for those who cannot
    /// see it.
    void Show(const std::vector<std::uint32_t>& pixels, int width, int height,
              const std::string& description);
    void Remove();

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

} // namespace ui
