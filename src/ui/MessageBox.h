#pragma once

#include <string>

class QWidget;

namespace ui {

enum class BoxIcon { None, Critical };

/// Shows a modal message box with an OK button and waits until it is closed. Line breaks in the text may be
/// CR LF or LF. The owner may be a window that is not visible yet.
void ShowMessageBox(QWidget* owner, const std::string& title, const std::string& text, BoxIcon icon);

/// Shows the busy pointer over the whole program from its making until Restore or the end of its scope.
class BusyPointer {
  public:
    BusyPointer();
    ~BusyPointer() { Restore(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
    void Restore();

  private:
    bool Busy = true;
};

} // namespace ui
