#include "ImageArchive.h"

#include "BMP.h"
#include "Failure.h"
#include "GameFile.h"

#include <algorithm>
#include <memory>

namespace morvane {

namespace {

constexpr const char* ArchiveName = "IMG.%EP%";
constexpr std::size_t CodesStart = 2048;
constexpr std::size_t CodesSize = 90;
constexpr std::size_t TablesSize = CodesStart + CodesSize * std::tuple_size_v<ImageGroups>;
constexpr std::size_t ImageHeaderSize = 10;

std::vector<ImageEntry> ReadImageHeaders(GameFile& archive, std::int64_t position, std::size_t count) {
    std::vector<ImageEntry> images(count);
    for (ImageEntry& image : images) {
        const ConstBytes header = archive.Window(position, ImageHeaderSize);
        image.Width = header[0];
        image.Height = header[1];
        image.Unknown1 = static_cast<std::uint32_t>(GameFile::LongAt(header.subspan(2)));
        image.Unknown2 = static_cast<std::uint32_t>(GameFile::LongAt(header.subspan(6)));
        image.DataOffset = position + static_cast<std::int64_t>(ImageHeaderSize);
        position = image.DataOffset + std::int64_t{image.Width} * image.Height;
    }
    return images;
}

// Turns the archive's columns into rows. Square blocks keep both sides in the processor's first cache.
void Transpose(ConstBytes columns, Bytes rows, std::size_t width, std::size_t height) {
    constexpr std::size_t Block = 16;
    for (std::size_t top = 0; top < height; top += Block) {
        const std::size_t bottom = std::min(top + Block, height);
        for (std::size_t left = 0; left < width; left += Block) {
            const std::size_t right = std::min(left + Block, width);
            for (std::size_t x = left; x < right; ++x)
                for (std::size_t y = top; y < bottom; ++y) rows[y * width + x] = columns[x * height + y];
        }
    }
}

} // namespace

void ReadImageArchive(const GameFolder& game, ImageGroups& groups) {
    GameFile archive(game, ArchiveName);
    std::vector<std::uint8_t> tables(TablesSize);
    archive.Read(0, tables);
    const auto fresh = std::make_unique<ImageGroups>();
    for (std::size_t g = 1; g < fresh->size(); ++g) {
        ImageGroup& group = (*fresh)[g];
        group.Offset = GameFile::LongAt(ConstBytes(tables).subspan(4 * g, 4));
        std::copy_n(tables.begin() + static_cast<std::ptrdiff_t>(CodesStart + CodesSize * g), CodesSize,
                    group.Codes.begin());
        if (group.Offset <= 0) continue;
        group.Images = ReadImageHeaders(archive, group.Offset, group.Codes[2]);
        group.Duplicate = group.Offset == (*fresh)[g - 1].Offset;
    }
    for (std::size_t g = 1; g < groups.size(); ++g) {
        ImageGroup& group = (*fresh)[g];
        if (group.Offset <= 0) {
            group.Images = std::move(groups[g].Images);
            group.Duplicate = groups[g].Duplicate;
        }
        groups[g] = std::move(group);
    }
}

std::vector<std::uint8_t> ReadImage(const GameFolder& game, const ImageGroups& groups, std::int32_t group,
                                    std::int32_t image) {
    const GameFile archive(game, ArchiveName);
    if (group < 0 || static_cast<std::size_t>(group) >= groups.size() || image < 0 ||
        static_cast<std::size_t>(image) >= groups[static_cast<std::size_t>(group)].Images.size())
        throw Failure(OutOfRangeError, game.ProgramName, "There is no such image.");
    const ImageEntry& entry = groups[static_cast<std::size_t>(group)].Images[static_cast<std::size_t>(image)];
    const std::size_t size = std::size_t{entry.Width} * entry.Height;
    std::vector<std::uint8_t> columns(size);
    archive.Read(entry.DataOffset, columns);
    std::vector<std::uint8_t> pixels(size);
    Transpose(columns, pixels, entry.Width, entry.Height);
    AddBMPHeader(entry.Width, entry.Height, pixels);
    return pixels;
}

} // namespace morvane
