#include "Archives.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>

namespace morvane::encode {

namespace {

constexpr std::size_t GroupCount = 512;
constexpr std::size_t CodesStart = 4 * GroupCount;
constexpr std::size_t CodesSize = 90;
constexpr std::size_t EntryRecordSize = 6;
constexpr std::size_t MapsStart = 514;

void Put(ByteVector& bytes, std::size_t position, std::uint32_t value, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) bytes[position + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

void Append(ByteVector& bytes, std::span<const std::uint8_t> more) {
    const std::size_t end = bytes.size();
    bytes.resize(end + more.size());
    std::ranges::copy(more, bytes.begin() + static_cast<std::ptrdiff_t>(end));
}

// A file's first bytes: as many as asked for, then the given ones over them from a position, as many as fit.
ByteVector Begin(std::size_t size, std::span<const std::uint8_t> bytes, std::size_t position) {
    ByteVector result(size);
    std::copy_n(bytes.begin(), std::min(bytes.size(), size - position),
                result.begin() + static_cast<std::ptrdiff_t>(position));
    return result;
}

} // namespace

ByteVector EncodePalette(const std::array<Color, 256>& colors, std::span<const std::uint8_t> head,
                         std::span<const std::uint8_t> tail) {
    ByteVector bytes = Begin(PaletteStart, head, 0);
    for (const Color& color : colors) Append(bytes, std::array{color.Red, color.Green, color.Blue});
    Append(bytes, tail);
    return bytes;
}

ByteVector EncodeImage(const Image& image) {
    ByteVector bytes(10);
    bytes[0] = image.Width;
    bytes[1] = image.Height;
    Put(bytes, 2, image.Unknown1, 4);
    Put(bytes, 6, image.Unknown2, 4);
    for (std::size_t x = 0; x < image.Width; ++x) {
        for (std::size_t i = x; i < image.Pixels.size() && i < std::size_t{image.Width} * image.Height;
             i += image.Width)
            bytes.push_back(image.Pixels[i]);
    }
    return bytes;
}

ByteVector EncodeImageArchive(const std::map<int, Group>& groups) {
    ByteVector bytes(CodesStart + CodesSize * GroupCount);
    std::size_t lower = 0; // offset of the group numbered one lower
    int lowerNumber = 0;
    for (const auto& [number, group] : groups) {
        if (number < 1 || number >= static_cast<int>(GroupCount)) continue;
        const auto slot = static_cast<std::size_t>(number);
        const bool shares = group.SharesLower && number == lowerNumber + 1;
        const std::size_t start = shares ? lower : bytes.size();
        Put(bytes, 4 * slot,
            group.Offset ? static_cast<std::uint32_t>(*group.Offset) : static_cast<std::uint32_t>(start), 4);
        const std::size_t codes = CodesStart + CodesSize * slot;
        std::ranges::copy(group.Codes, bytes.begin() + static_cast<std::ptrdiff_t>(codes));
        bytes[codes + 2] = group.ImageCount.value_or(static_cast<std::uint8_t>(group.Images.size()));
        if (!shares) {
            for (const Image& image : group.Images) Append(bytes, EncodeImage(image));
        }
        lower = start;
        lowerNumber = number;
    }
    return bytes;
}

ByteVector EncodeMapArchive(std::span<const Map> maps, std::span<const std::uint8_t> unused,
                            std::optional<std::int16_t> count) {
    ByteVector bytes = Begin(MapsStart, unused, 2);
    Put(bytes, 0, static_cast<std::uint16_t>(count.value_or(static_cast<std::int16_t>(maps.size()))), 2);
    for (const Map& map : maps) {
        for (const MapCell cell : map) Append(bytes, std::array{cell.Plane0, cell.Plane1});
    }
    return bytes;
}

ByteVector EncodeEntryTable(std::span<const Entry> entries, std::size_t count) {
    ByteVector bytes(EntryRecordSize * count);
    for (std::size_t i = 0; i < count && i < entries.size(); ++i) {
        const Entry& entry = entries[i];
        const auto offset = entry.Offset.value_or(static_cast<std::int32_t>(bytes.size()));
        Put(bytes, EntryRecordSize * i, entry.Size.value_or(static_cast<std::uint16_t>(entry.Data.size())),
            2);
        Put(bytes, EntryRecordSize * i + 2, static_cast<std::uint32_t>(offset), 4);
        if (offset < 0 || entry.Data.empty()) continue;
        const auto start = static_cast<std::size_t>(offset);
        bytes.resize(std::max(bytes.size(), start + entry.Data.size()));
        std::ranges::copy(entry.Data, bytes.begin() + offset);
    }
    return bytes;
}

} // namespace morvane::encode
