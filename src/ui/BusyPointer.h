#pragma once

namespace ui {

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
