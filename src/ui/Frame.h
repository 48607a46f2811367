#pragma once

#include <QGroupBox>

namespace ui {

/// A frame with a caption in its top edge. Its children are placed by pixels from its top left corner;
/// disabling it disables them all. A picture box inside that has the focus gets its mark from here, around
/// the picture.
class Frame : public QGroupBox {
  public:
    using QGroupBox::QGroupBox;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace ui
