#include "DemoFiles.h"

#include <sstream>

namespace morvane {

encode::Image ReadBMP(const encode::ByteVector& bytes, encode::Palette& colors) {
    const auto byteAt = [&](std::size_t position) { // 0 behind the file's end
        return position < bytes.size() ? bytes[position] : std::uint8_t{0};
    };
    const auto number = [&](std::size_t position) { // of 4 bytes, the lowest first
        std::size_t value = 0;
        for (std::size_t i = 4; i-- > 0;) value = 256 * value + byteAt(position + i);
        return value;
    };
    const std::size_t pixelStart = number(10);
    const std::size_t headerSize = number(14);
    const std::size_t width = number(18);
    const std::size_t height = number(22); // a huge number when rows are stored from the top
    const std::size_t depth = byteAt(28);
    const std::size_t colorsUsed = number(46); // 0 for all
    const std::size_t rowSize = (width + 3) / 4 * 4;
    Require(byteAt(0) == 'B' && byteAt(1) == 'M' && headerSize >= 40, "is not a Windows BMP file");
    Require(depth == 8, "has " + std::to_string(depth) + " bits per pixel instead of 8");
    Require(number(30) == 0, "is compressed");
    Require(colorsUsed == 0 || colorsUsed == 256, "has fewer than 256 colours");
    Require(width >= 1 && width <= 255 && height >= 1 && height <= 255,
            "is not between 1 x 1 and 255 x 255 pixels large, or not stored from the bottom");
    Require(bytes.size() >= pixelStart + rowSize * height, "is cut short");

    encode::Image image{static_cast<std::uint8_t>(width), static_cast<std::uint8_t>(height), 0, 0, {}};
    for (std::size_t y = height; y-- > 0;) {
        for (std::size_t x = 0; x < width; ++x) image.Pixels.push_back(bytes[pixelStart + rowSize * y + x]);
    }
    std::size_t position = 14 + headerSize; // the colour table: blue, green, red, unused
    for (encode::Color& color : colors) {
        color = {byteAt(position + 2), byteAt(position + 1), byteAt(position)};
        position += 4;
    }
    return image;
}

encode::Map ReadMapText(const std::string& text) {
    encode::Map map{};
    std::array<std::map<char, std::uint8_t>, 2> key; // the code of each character, by plane
    bool inKey = true;
    std::size_t row = 0; // rows 64 to 127 are those of plane 1
    std::istringstream lines(text);
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        const std::string where = "line " + std::to_string(number);
        if (line.ends_with('\r')) line.pop_back();
        if (line.empty()) {
            inKey = false;
        } else if (inKey && line[0] != ';') {
            std::istringstream words(line);
            std::size_t plane = 0;
            char character = 0;
            int code = 0;
            words >> plane >> character >> code;
            Require(words && plane <= 1 && code >= 0 && code <= 255,
                    where + " does not begin with plane (0 or 1), character and code (0 to 255)");
            key[plane][character] = static_cast<std::uint8_t>(code);
        } else if (!inKey) {
            Require(row < 128, where + " is one too many: a map has 2 x 64 lines");
            Require(line.size() == 64,
                    where + " has " + std::to_string(line.size()) + " characters instead of 64");
            for (std::size_t column = 0; column < 64; ++column) {
                const char character = line[column];
                const std::size_t plane = row / 64;
                Require(key[plane].contains(character), where + " has a '" + character +
                                                            "', which is not in the key of plane " +
                                                            std::to_string(plane));
                encode::MapCell& cell = map[row % 64 * 64 + column];
                (plane == 0 ? cell.Plane0 : cell.Plane1) = key[plane][character];
            }
            ++row;
        }
    }
    Require(row == 128, "has " + std::to_string(row) + " lines of map instead of 2 x 64");
    return map;
}

} // namespace morvane
