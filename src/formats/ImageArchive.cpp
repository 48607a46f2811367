#include "ImageArchive.h"

#include "BMP.h"
#include "Failure.h"
#include "GameFile.h"

#include <algorithm>
#include <bit>
#include <cstring>
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
        position += static_cast<std::int64_t>(ImageHeaderSize);
        image.DataOffset = static_cast<std::uint32_t>(position); // at most 255 images behind 2 GiB
        position += std::int64_t{image.Width} * image.Height;
    }
    return images;
}

static_assert(std::endian::native == std::endian::little, "the words below are read in this order of bytes");

// Swaps rows and columns of 8 x 8 bytes held in 8 words, lowest byte first: by halves, quarters and single
// bytes.
void TransposeBlock(std::array<std::uint64_t, 8>& block) {
    const auto exchange = [&block](std::size_t first, std::size_t second, int shift, std::uint64_t mask) {
        const std::uint64_t differing = (block[first] >> shift ^ block[second]) & mask;
        block[first] ^= differing << shift;
        block[second] ^= differing;
    };
    for (const std::size_t i : {0U, 1U, 2U, 3U}) exchange(i, i + 4, 32, 0x00000000FFFFFFFF);
    for (const std::size_t i : {0U, 1U, 4U, 5U}) exchange(i, i + 2, 16, 0x0000FFFF0000FFFF);
    for (const std::size_t i : {0U, 2U, 4U, 6U}) exchange(i, i + 1, 8, 0x00FF00FF00FF00FF);
}

// Turns the archive's columns into rows, in blocks of 8 x 8 and singly at the right and bottom edges.
void Transpose(ConstBytes columns, Bytes rows, std::size_t width, std::size_t height) {
    constexpr std::size_t Side = 8;
    const std::size_t blocksRight = width / Side * Side;
    const std::size_t blocksBottom = height / Side * Side;
    std::array<std::uint64_t, Side> block{};
    for (std::size_t top = 0; top < blocksBottom; top += Side) {
        for (std::size_t left = 0; left < blocksRight; left += Side) {
            for (std::size_t i = 0; i < Side; ++i)
                std::memcpy(&block[i], columns.data() + (left + i) * height + top, Side);
            TransposeBlock(block);
            for (std::size_t i = 0; i < Side; ++i)
                std::memcpy(rows.data() + (top + i) * width + left, &block[i], Side);
        }
    }
    const auto single = [&](std::size_t x, std::size_t y) { rows[y * width + x] = columns[x * height + y]; };
    for (std::size_t x = blocksRight; x < width; ++x)
        for (std::size_t y = 0; y < height; ++y) single(x, y);
    for (std::size_t y = blocksBottom; y < height; ++y)
        for (std::size_t x = 0; x < blocksRight; ++x) single(x, y);
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
