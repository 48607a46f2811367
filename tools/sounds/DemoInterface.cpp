#include "Archives.h"
#include "DemoSounds.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

namespace morvane::demo {

namespace {

using Bytes = std::vector<std::uint8_t>;

// Places on the screen: left, top, width and height of each, as 16-bit numbers.
struct Box {
    int Left;
    int Top;
    int Width;
    int Height;
};

Bytes Boxes(std::initializer_list<Box> boxes) {
    Bytes bytes;
    for (const Box& box : boxes) {
        for (const int value : {box.Left, box.Top, box.Width, box.Height}) {
            bytes.push_back(static_cast<std::uint8_t>(value));
            bytes.push_back(static_cast<std::uint8_t>(value >> 8));
        }
    }
    return bytes;
}

// A caption with its closing zero.
Bytes Caption(std::string_view text) {
    Bytes bytes(text.begin(), text.end());
    bytes.push_back(0);
    return bytes;
}

// Colour numbers in even steps.
Bytes Ramp(int first, int step, int count) {
    Bytes bytes;
    for (int i = 0; i < count; ++i) bytes.push_back(static_cast<std::uint8_t>(first + i * step));
    return bytes;
}

// A pointer shape: width, height, then a bit for each of its pixels, leftmost first.
Bytes Shape(std::initializer_list<std::uint8_t> rows) {
    Bytes bytes;
    bytes.push_back(8);
    bytes.push_back(static_cast<std::uint8_t>(rows.size()));
    for (const std::uint8_t row : rows) bytes.push_back(row);
    return bytes;
}

std::array<Bytes, encode::InterfaceEntryCount> InterfaceData() {
    return {
        Boxes({{0, 0, 320, 160}, {0, 160, 320, 40}}),
        Boxes({{8, 164, 64, 32}, {80, 164, 160, 32}, {248, 164, 64, 32}}),
        Boxes({{60, 40, 200, 24}, {60, 68, 200, 24}, {60, 96, 200, 24}, {60, 124, 200, 24}}),
        Boxes({{100, 60, 120, 80}}),
        Caption("New Game"),
        Caption("Load Game"),
        Caption("Save Game"),
        Caption("Options"),
        Caption("Leave"),
        Caption("Health"),
        Caption("Mana"),
        Caption("Keys"),
        Caption("Level"),
        Caption("Score"),
        Caption("Paused"),
        Caption("The door is locked."),
        Caption("You have found a secret passage!"),
        Caption("The gate opens far away..."),
        Caption("Do you really want to leave? (Y/N)"),
        Ramp(16, 1, 16),
        Ramp(47, -1, 16),
        Ramp(64, 2, 8),
        Ramp(255, -8, 32),
        Shape({0x80, 0xC0, 0xE0, 0xF0, 0xF8, 0xE0, 0x90, 0x10}),
        Shape({0x18, 0x18, 0x18, 0xFF, 0xFF, 0x18, 0x18, 0x18}),
        Shape({0x3C, 0x42, 0x99, 0xA5, 0xA5, 0x99, 0x42, 0x3C}),
        Shape({0x66, 0xFF, 0xFF, 0xFF, 0x7E, 0x3C, 0x18}),
        Shape({0x08, 0x1C, 0x1C, 0x3E, 0x7F, 0x7F, 0x3E, 0x1C}),
        Shape({0x38, 0x44, 0x44, 0x38, 0x10, 0x1C, 0x10, 0x1C}),
        Bytes{0, 1, 2, 3, 2, 1},      // frames of the torch
        Bytes{30, 60, 90, 120, 150},  // seconds of the hints
        Bytes{1, 0, 0, 1, 1, 0, 1, 0} // options at the first start
    };
}

} // namespace

std::vector<std::uint8_t> MakeInterfaceFile() {
    std::vector<encode::Entry> entries;
    for (Bytes& data : InterfaceData())
        entries.push_back({.Data = std::move(data), .Size = {}, .Offset = {}});
    return encode::EncodeEntryTable(entries, encode::InterfaceEntryCount);
}

} // namespace morvane::demo
