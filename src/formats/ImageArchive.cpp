#include "ImageArchive.h"

#include "Failure.h"
#include "GameFile.h"
#include "LittleEndian.h"
#include "modAddBMPHeader.h"

#include <algorithm>

namespace morvane {

namespace {

constexpr const char* ArchiveName = "IMG.%EP%";
constexpr std::size_t CodesStart = 2048;
constexpr std::size_t CodesSize = 90;
constexpr std::size_t TablesSize = CodesStart + CodesSize * std::tuple_size_v<ImageGroups>;
constexpr std::int64_t ImageHeaderSize = 10;

std::vector<ImageEntry> ReadImageHeaders(const GameFile& archive, std::int64_t position, std::size_t count) {
    std::vector<ImageEntry> images(count);
    for (ImageEntry& image : images) {
        std::array<std::uint8_t, ImageHeaderSize> header{};
        archive.Read(position, header);
        position += ImageHeaderSize;
        // The group starts at or below 2^31 and has at most 255 images, so it fits 32 bits.
        image.DataOffset = static_cast<std::uint32_t>(position);
        image.Width = header[0];
        image.Height = header[1];
        image.Unknown1 = LongAt(header, 2);
        image.Unknown2 = LongAt(header, 6);
        position += std::int64_t{image.Width} * image.Height;
    }
    return images;
}

} // namespace

void ReadImageArchive(const GameFolder& game, ImageGroups& groups) {
    const GameFile archive(game, ArchiveName);
    std::vector<std::uint8_t> tables(TablesSize);
    archive.Read(0, tables);
    for (std::size_t g = 1; g < groups.size(); ++g) {
        ImageGroup& group = groups[g];
        group.Offset = static_cast<std::int32_t>(LongAt(tables, 4 * g));
        std::copy_n(&tables[CodesStart + CodesSize * g], CodesSize, group.Codes.begin());
        if (group.Offset <= 0) continue;
        group.Images = ReadImageHeaders(archive, group.Offset, group.Codes[2]);
        group.Duplicate = group.Offset == groups[g - 1].Offset;
    }
}

std::vector<std::uint8_t> ReadImage(const GameFolder& game, const ImageGroups& groups, std::int32_t group,
                                    std::int32_t image) {
    const GameFile archive(game, ArchiveName);
    const ImageEntry& entry =
        groups.at(static_cast<std::size_t>(group)).Images.at(static_cast<std::size_t>(image));
    const std::size_t width = entry.Width;
    const std::size_t height = entry.Height;
    std::vector<std::uint8_t> columns(width * height);
    archive.Read(entry.DataOffset, columns);
    std::vector<std::uint8_t> pixels(width * height);
    const std::uint8_t* from = columns.data();
    std::uint8_t* to = pixels.data();
    for (std::size_t y = 0; y < height; ++y)
        for (std::size_t x = 0; x < width; ++x) *to++ = from[height * x + y];
    AddBMPHeader(entry.Width, entry.Height, pixels);
    return pixels;
}

} // namespace morvane
