#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <vector>

/// Writers of the game's files, from plain tables to bytes. They check nothing, so that odd files can be
/// written too.
namespace morvane::encode {

using ByteVector = std::vector<std::uint8_t>;

/// One colour of the palette, intensities 0 to 255.
struct Color {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;

    friend bool operator==(const Color&, const Color&) = default;
};

/// The colours of the pixel values 0 to 255.
using Palette = std::array<Color, 256>;

/// GAME.PAL: 1156 bytes of zeros, then 256 triples red, green, blue.
ByteVector EncodePalette(const Palette& colors);

/// One image. Pixels are row-major, top row first, Width x Height of them; fewer leave the file short of the
/// rest.
struct Image {
    std::uint8_t Width = 0;
    std::uint8_t Height = 0;
    std::uint32_t Unknown1 = 0;
    std::uint32_t Unknown2 = 0;
    ByteVector Pixels;

    friend bool operator==(const Image&, const Image&) = default;
};

/// One group of images.
struct Group {
    std::array<std::uint8_t, 90> Codes{}; ///< code record; byte 2 is replaced by the number of images
    std::vector<Image> Images;            ///< 0 to 255 images
    bool SharesLower = false; ///< same offset as the group numbered one lower; Images are not written
    std::optional<std::uint8_t> ImageCount; ///< byte 2 of the code record when it shall tell another number
    std::optional<std::int32_t> Offset; ///< the directory's offset when it shall not be where the images lie
};

/// IMG.n: the directory (512 offsets, 512 code records of 90 bytes) and the images in ascending group number,
/// behind one another. Groups are numbered from 1 to 511; those not given have offset 0 and a code record of
/// zeros.
ByteVector EncodeImageArchive(const std::map<int, Group>& groups);

/// One cell of a map.
struct MapCell {
    std::uint8_t Plane0 = 0;
    std::uint8_t Plane1 = 0;
};

/// A map of 64 rows of 64 cells, row-major.
using Map = std::array<MapCell, 4096>;

/// MAP.n: the count (that of the maps unless another is given), 512 bytes cut or filled with zeros, and the
/// maps.
ByteVector EncodeMapArchive(std::span<const Map> maps, std::span<const std::uint8_t> unused = {},
                            std::optional<std::int16_t> count = {});

/// One entry of a file that begins with a table of sizes and offsets.
struct Entry {
    ByteVector Data;                   ///< at most 65535 bytes unless Size is given
    std::optional<std::uint16_t> Size; ///< the table's size when it shall not be that of Data
    std::optional<std::int32_t>
        Offset; ///< where Data is put (nowhere when negative); else behind what is there
};

/// Number of entries in the tables of SND.DAT and UIF.DAT.
inline constexpr std::size_t SoundEntryCount = 160;
inline constexpr std::size_t InterfaceEntryCount = 32;

/// A file of a table of 6-byte records (size 16-bit, offset 32-bit) and the entries' data in their order.
/// Entries not given have size 0 and offset 0; empty entries without an offset of their own point where the
/// next data begin.
ByteVector EncodeEntryTable(std::span<const Entry> entries, std::size_t count);

} // namespace morvane::encode
