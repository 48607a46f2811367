#pragma once

#include "Archives.h"

#include <array>
#include <cstdint>

namespace morvane::demo {

/// The palette is sixteen rows of sixteen colours: a ramp each, from dark to bright.
enum class Ramp : std::uint8_t {
    Grey,
    Stone,
    Brick,
    Wood,
    Sand,
    Leaf,
    Moss,
    Blue,
    Ice,
    Teal,
    Purple,
    Skin,
    Gold,
    Fire,
    Steel,
    Accent ///< not a ramp: single bright colours
};

/// Palette index of a step (0 dark to 15 bright) of a ramp.
constexpr int Index(Ramp ramp, int step) { return static_cast<int>(ramp) * 16 + step; }

inline constexpr int Black = Index(Ramp::Grey, 0);
inline constexpr int White = Index(Ramp::Grey, 15);
inline constexpr int BrightRed = Index(Ramp::Accent, 0);
inline constexpr int BrightOrange = Index(Ramp::Accent, 1);
inline constexpr int BrightYellow = Index(Ramp::Accent, 2);
inline constexpr int BrightGreen = Index(Ramp::Accent, 3);
inline constexpr int BrightCyan = Index(Ramp::Accent, 4);
inline constexpr int BrightBlue = Index(Ramp::Accent, 5);
inline constexpr int BrightMagenta = Index(Ramp::Accent, 6);
inline constexpr int DarkRed = Index(Ramp::Accent, 7);

/// The colour around sprites, a muted violet used for nothing else.
inline constexpr int SpriteBackground = Index(Ramp::Accent, 15);

/// The 256 colours.
std::array<encode::Color, 256> MakePalette();

/// The bytes of GAME.PAL.
encode::ByteVector MakePaletteFile();

} // namespace morvane::demo
