#include "BMP.h"
#include "Failure.h"
#include "Fuzz.h"
#include "ImageArchive.h"
#include "Palette.h"
#include "PictureFromBMP.h"

#include <algorithm>
#include <memory>

namespace morvane::fuzz {

namespace {

constexpr std::int64_t CodesStart = 2048;
constexpr std::size_t CodesSize = 90;
constexpr std::size_t TablesSize = 512 * (4 + CodesSize);

// An archive may list over 100,000 images of up to 65,025 pixels. What comes first within these bounds is as
// good as all, and an input then takes a few milliseconds.
constexpr int MostImages = 256;
constexpr std::int64_t MostPixels = 1 << 18;

/// An input that begins with 0xFF is an archive behind that byte. Others are shorter than the tables of an
/// archive and describe one: a number of groups, for each its number (2 bytes), offset (4 bytes; from the end
/// of the tables when it has 16 bits) and the byte of its whole code record, then what follows the tables.
std::vector<std::uint8_t> Archive(ConstBytes input) {
    if (!input.empty() && input[0] == 0xFF) return {input.begin() + 1, input.end()};
    constexpr std::size_t RecordSize = 7;
    const ZeroExtended data(input);
    const std::size_t groups = data.At(0) % 17;
    std::vector<std::uint8_t> archive(TablesSize);
    for (std::size_t i = 0; i < groups; ++i) {
        const auto record = static_cast<std::int64_t>(1 + RecordSize * i);
        const std::size_t group = data.Number(record, 2) % 512;
        std::uint32_t offset = data.Number(record + 2, 4);
        if (offset <= 0xFFFF) offset += TablesSize;
        for (std::size_t byte = 0; byte < 4; ++byte)
            archive[4 * group + byte] = static_cast<std::uint8_t>(offset >> 8 * byte);
        std::fill_n(archive.begin() + CodesStart + static_cast<std::ptrdiff_t>(CodesSize * group), CodesSize,
                    data.At(record + 6));
    }
    const ConstBytes tail = input.subspan(std::min(input.size(), 1 + RecordSize * groups));
    archive.insert(archive.end(), tail.begin(), tail.end());
    return archive;
}

void CheckDirectory(const ImageGroups& groups, const ZeroExtended& file) {
    for (std::int64_t g = 1; g < std::ssize(groups); ++g) {
        const ImageGroup& group = groups[static_cast<std::size_t>(g)];
        Check(group.Offset == file.Long(4 * g), "a group has the offset of the directory");
        for (std::int64_t i = 0; const std::uint8_t code : group.Codes)
            Check(code == file.At(CodesStart + 90 * g + i++), "a group has the codes of the directory");
        if (group.Offset <= 0) continue;
        Check(group.Duplicate == (g > 1 && group.Offset == file.Long(4 * (g - 1))),
              "a duplicate shares an offset");
        Check(group.Images.size() == group.Codes[2], "a group has as many images as its codes tell");
        std::int64_t position = group.Offset;
        for (const ImageEntry& image : group.Images) {
            Check(image.Width == file.At(position) && image.Height == file.At(position + 1) &&
                      image.Unknown1 == file.Number(position + 2, 4) &&
                      image.Unknown2 == file.Number(position + 6, 4) && image.DataOffset == position + 10,
                  "an image is its record");
            position = image.DataOffset + std::int64_t{image.Width} * image.Height;
        }
    }
}

void CheckPicture(const Picture& picture, const ImageEntry& image, const ZeroExtended& file) {
    Check(picture.Width() == image.Width && picture.Height() == image.Height,
          "a picture has its image's size");
    std::int64_t position = image.DataOffset;
    for (int x = 0; x < picture.Width(); ++x) {
        for (int y = 0; y < picture.Height(); ++y) {
            const PaletteEntry& color = Palette[file.At(position++)];
            Check(*picture.At(x, y) == PixelOf(color.Red, color.Green, color.Blue), "a pixel has its colour");
        }
    }
}

void CheckImages(const GameFolder& game, const ImageGroups& groups, const ZeroExtended& file) {
    int count = 0;
    std::int64_t pixels = 0;
    for (std::int32_t g = 0; g < std::ssize(groups); ++g) {
        for (std::int32_t i = 0; const ImageEntry& image : groups[static_cast<std::size_t>(g)].Images) {
            const std::int64_t size = std::int64_t{image.Width} * image.Height;
            pixels += size;
            if (++count > MostImages || pixels > MostPixels) return;
            const std::vector<std::uint8_t> bytes = ReadImage(game, groups, g, i++);
            Check(std::ssize(bytes) == BMPPixelStart + BMPStride(image.Width) * image.Height,
                  "a BMP file is whole");
            CheckPicture(PictureFromBMP(bytes), image, file);
        }
    }
}

/// A BMP file with a header of any content gives a picture of the size that it tells, or is refused.
void CheckOddHeader(ConstBytes input) {
    std::vector<std::uint8_t> bytes(512);
    AddBMPHeader(64, 8, bytes);
    const std::size_t length = std::min<std::size_t>(input.size(), 12);
    std::copy_n(input.begin(), length, bytes.begin() + 18);
    bytes.resize(bytes.size() - std::min(bytes.size(), input.size()));
    const ZeroExtended file(bytes);
    try {
        const Picture picture = PictureFromBMP(bytes);
        Check(picture.Width() == file.Long(18) && picture.Height() == file.Long(22),
              "a picture has its file's size");
        Check(file.Number(28, 2) == 8 ||
                  std::ranges::all_of(picture.Pixels(), [](Pixel p) { return p == 0xFF000000; }),
              "a picture of another depth is black");
    } catch (const Failure& failure) {
        Check(failure.Number == OutOfRangeError, "an incomplete BMP file is out of range");
    }
}

} // namespace

} // namespace morvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace morvane;
    static const fuzz::Scratch scratch;
    for (std::size_t i = 0; i < Palette.size(); ++i) {
        const auto value = static_cast<std::uint8_t>(i);
        Palette[i] = {value, static_cast<std::uint8_t>(value ^ 0x55), static_cast<std::uint8_t>(255 - value),
                      0};
    }
    const std::vector<std::uint8_t> archive = fuzz::Archive({data, size});
    const fuzz::ZeroExtended file(archive);
    (void)scratch.Write("IMG.1", archive);
    const auto groups = std::make_unique<ImageGroups>();
    ReadImageArchive(scratch.Game(), *groups);
    fuzz::CheckDirectory(*groups, file);
    fuzz::CheckImages(scratch.Game(), *groups, file);
    fuzz::CheckOddHeader({data, size});
    return 0;
}
