#include "DemoPalette.h"

#include "Archives.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace morvane::demo {

namespace {

struct RampColors {
    encode::Color Dark, Middle, Bright;
};

// Steps 0, 8 and 15 of each ramp; the hue turns a little on the way, as paint does.
constexpr std::array<RampColors, 15> Ramps{{
    {{0, 0, 0}, {116, 116, 120}, {255, 255, 255}},    // grey
    {{16, 14, 18}, {112, 104, 94}, {222, 214, 196}},  // stone
    {{24, 6, 8}, {144, 52, 38}, {240, 152, 116}},     // brick
    {{20, 10, 4}, {122, 76, 36}, {226, 172, 104}},    // wood
    {{30, 20, 10}, {164, 132, 80}, {250, 234, 184}},  // sand
    {{4, 16, 8}, {44, 124, 36}, {188, 240, 104}},     // leaf
    {{12, 16, 6}, {88, 100, 42}, {204, 204, 128}},    // moss
    {{4, 6, 32}, {40, 76, 176}, {164, 208, 255}},     // blue
    {{16, 32, 56}, {108, 168, 208}, {244, 255, 255}}, // ice
    {{2, 20, 24}, {20, 124, 116}, {148, 248, 212}},   // teal
    {{18, 4, 30}, {116, 48, 152}, {240, 176, 255}},   // purple
    {{32, 12, 8}, {188, 120, 84}, {255, 224, 192}},   // skin
    {{36, 18, 0}, {200, 140, 20}, {255, 248, 168}},   // gold
    {{32, 0, 0}, {236, 84, 8}, {255, 248, 176}},      // fire
    {{8, 10, 18}, {92, 104, 124}, {216, 228, 244}},   // steel
}};

constexpr std::array<encode::Color, 16> Accents{{
    {255, 40, 40},
    {255, 144, 24},
    {255, 236, 48},
    {64, 255, 72},
    {64, 240, 255},
    {72, 104, 255},
    {255, 72, 224},
    {112, 8, 16},
    {168, 255, 128},
    {255, 176, 208},
    {0, 64, 48},
    {48, 24, 96},
    {96, 64, 16},
    {200, 255, 240},
    {255, 208, 160},
    {84, 66, 98},
}};

// Between two values: step of steps.
std::uint8_t Blend(int from, int to, int step, int steps) {
    return static_cast<std::uint8_t>(from + (to - from) * step / steps);
}

encode::Color Blend(const encode::Color& from, const encode::Color& to, int step, int steps) {
    return {.Red = Blend(from.Red, to.Red, step, steps),
            .Green = Blend(from.Green, to.Green, step, steps),
            .Blue = Blend(from.Blue, to.Blue, step, steps)};
}

} // namespace

std::array<encode::Color, 256> MakePalette() {
    std::array<encode::Color, 256> colors{};
    std::size_t at = 0;
    for (const RampColors& ramp : Ramps) {
        for (int step = 0; step < 16; ++step) {
            colors.at(at++) = step < 8 ? Blend(ramp.Dark, ramp.Middle, step, 8)
                                       : Blend(ramp.Middle, ramp.Bright, step - 8, 7);
        }
    }
    for (const encode::Color& accent : Accents) colors.at(at++) = accent;
    return colors;
}

encode::ByteVector MakePaletteFile() {
    constexpr std::string_view title = "Morvane palette\r\n256 colours in 16 rows\r\n\x1A";
    encode::ByteVector head(title.begin(), title.end());
    // Behind the title, a table of 1024 bytes up to the colours: what each colour becomes in four steps of
    // darkness.
    head.resize(encode::PaletteStart - 1024);
    for (int shade = 0; shade < 4; ++shade) {
        for (int index = 0; index < 256; ++index) {
            const int step = index % 16 - 3 * shade;
            head.push_back(static_cast<std::uint8_t>(step > 0 ? index - 3 * shade : index - index % 16));
        }
    }
    constexpr std::array<std::uint8_t, 4> tail{0xFF, 0x00, 0x50, 0x4D};
    return encode::EncodePalette(MakePalette(), head, tail);
}

} // namespace morvane::demo
