#include "Random.h"

#include <cstdint>

namespace morvane::demo {

std::uint32_t Hash(int x, int y, std::uint32_t seed) {
    std::uint32_t h = seed * 0x9E3779B1U;
    h ^= static_cast<std::uint32_t>(x) * 0x85EBCA6BU;
    h = (h ^ (h >> 15U)) * 0x2C1B3C6DU;
    h ^= static_cast<std::uint32_t>(y) * 0xC2B2AE35U;
    h = (h ^ (h >> 13U)) * 0x297A2D39U;
    return h ^ (h >> 16U);
}

int Noise(int x, int y, int cell, int period, std::uint32_t seed) {
    const int cx = x / cell;
    const int cy = y / cell;
    const auto corner = [&](int dx, int dy) {
        return static_cast<int>(Hash((cx + dx) % period, (cy + dy) % period, seed) & 255U);
    };
    // Eased steps between the corners, in 256ths.
    const auto ease = [&](int v) {
        const int t = (v % cell) * 256 / cell;
        return t * t * (768 - 2 * t) / 65536;
    };
    const int tx = ease(x);
    const int ty = ease(y);
    const int top = corner(0, 0) * (256 - tx) + corner(1, 0) * tx;
    const int bottom = corner(0, 1) * (256 - tx) + corner(1, 1) * tx;
    return (top / 256 * (256 - ty) + bottom / 256 * ty) / 256;
}

int Random::Below(int count) {
    State ^= State << 13U;
    State ^= State >> 17U;
    State ^= State << 5U;
    return static_cast<int>((State >> 8U) % static_cast<std::uint32_t>(count));
}

} // namespace morvane::demo
