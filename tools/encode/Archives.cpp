#include "Archives.h"

#include <algorithm>

namespace morvane::encode {

namespace {

constexpr std::size_t ColorsStart = 1156;
constexpr std::size_t GroupCount = 512;
constexpr std::size_t CodesStart = 4 * GroupCount;
constexpr std::size_t CodesSize = 90;
constexpr std::size_t EntryRecordSize = 6;
constexpr std::size_t MapsStart = 514;

void Put(ByteVector& bytes, std::size_t position, std::uint32_t value, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) bytes[position + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

/// Appends an image record: a header of 10 bytes and the pixels column by column, each from top to bottom.
void AppendImage(ByteVector& bytes, const Image& image) {
    const std::size_t start = bytes.size();
    bytes.resize(start + 10);
    bytes[start] = image.Width;
    bytes[start + 1] = image.Height;
    Put(bytes, start + 2, image.Unknown1, 4);
    Put(bytes, start + 6, image.Unknown2, 4);
    const std::size_t end = std::min(image.Pixels.size(), std::size_t{image.Width} * image.Height);
    for (std::size_t x = 0; x < image.Width; ++x) {
        for (std::size_t i = x; i < end; i += image.Width) bytes.push_back(image.Pixels[i]);
    }
}

} // namespace

ByteVector EncodePalette(const Palette& colors) {
    ByteVector bytes(ColorsStart);
    for (const Color& color : colors) bytes.insert(bytes.end(), {color.Red, color.Green, color.Blue});
    return bytes;
}

ByteVector EncodeImageArchive(const std::map<int, Group>& groups) {
    ByteVector bytes(CodesStart + CodesSize * GroupCount);
    std::map<int, std::int32_t> starts; // where each group's images lie
    for (const auto& [number, group] : groups) {
        const auto slot = static_cast<std::size_t>(number);
        const bool shares = group.SharesLower && starts.contains(number - 1);
        const std::int32_t start = shares ? starts[number - 1] : static_cast<std::int32_t>(bytes.size());
        starts[number] = start;
        Put(bytes, 4 * slot, static_cast<std::uint32_t>(group.Offset.value_or(start)), 4);
        const std::size_t codes = CodesStart + CodesSize * slot;
        std::ranges::copy(group.Codes, bytes.begin() + static_cast<std::ptrdiff_t>(codes));
        bytes[codes + 2] = group.ImageCount.value_or(static_cast<std::uint8_t>(group.Images.size()));
        if (!shares) {
            for (const Image& image : group.Images) AppendImage(bytes, image);
        }
    }
    return bytes;
}

ByteVector EncodeMapArchive(std::span<const Map> maps, std::span<const std::uint8_t> unused,
                            std::optional<std::int16_t> count) {
    ByteVector bytes(MapsStart);
    std::copy_n(unused.begin(), std::min(unused.size(), MapsStart - 2), bytes.begin() + 2);
    Put(bytes, 0, static_cast<std::uint16_t>(count.value_or(static_cast<std::int16_t>(maps.size()))), 2);
    for (const Map& map : maps) {
        for (const MapCell cell : map) bytes.insert(bytes.end(), {cell.Plane0, cell.Plane1});
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
