#pragma once

#include "Platform.h"

#include <utility>

namespace morvane {

/// Owns the descriptor of an open file and closes it at the end of its scope. A negative one stands for none.
class Descriptor {
  public:
    explicit Descriptor(int number) : Number(number) {}
    Descriptor(Descriptor&& other) noexcept : Number(std::exchange(other.Number, -1)) {}
    ~Descriptor() {
        if (Number >= 0) platform::Close(Number);
    }

    [[nodiscard]] int Get() const { return Number; }

    /// Closes the file now. A negative result is a failure whose number is in errno.
    int Close() { return platform::Close(std::exchange(Number, -1)); }

  private:
    int Number;
};

} // namespace morvane
