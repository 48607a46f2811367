#pragma once

#include <cstdint>

namespace morvane::demo {

/// A hash of two coordinates and a seed, the same on every machine.
std::uint32_t Hash(int x, int y, std::uint32_t seed);

/// Smooth noise 0 to 255 on a grid of cells that repeats after a number of cells; x and y in pixels.
int Noise(int x, int y, int cell, int period, std::uint32_t seed);

/// A small stream of numbers, the same on every machine.
class Random {
  public:
    explicit Random(std::uint32_t seed) : State(seed * 2654435761U + 88172645U) {}

    /// The next number from 0 to count - 1.
    int Below(int count);
    /// The next number from low to high, both included.
    int Between(int low, int high) { return low + Below(high - low + 1); }
    /// True once in so many calls on average.
    bool OneIn(int count) { return Below(count) == 0; }

  private:
    std::uint32_t State;
};

} // namespace morvane::demo
