#pragma once

#include "GameFolder.h"

#include <array>
#include <cstdint>
#include <vector>

namespace morvane {

/// The header of one image in an image archive.
struct ImageEntry {
    std::uint32_t DataOffset = 0; ///< byte position of the first pixel byte; may lie past 2 GiB
    std::uint8_t Width = 0;       ///< in pixels
    std::uint8_t Height = 0;      ///< in pixels
    std::uint32_t Unknown1 = 0;   ///< the header's two further numbers; kept, used nowhere
    std::uint32_t Unknown2 = 0;
};

/// One group of images. Present when Offset is positive; only then do Images and Duplicate mean anything.
struct ImageGroup {
    std::int32_t Offset = 0;              ///< byte position of the first image record
    std::array<std::uint8_t, 90> Codes{}; ///< the code record, verbatim; byte 2 counts the images
    std::vector<ImageEntry> Images;       ///< in file order
    bool Duplicate = false;               ///< Offset is that of the group numbered one lower
};

/// The image directory of an episode, indexed by group number 1 to 511; entry 0 stays empty.
using ImageGroups = std::array<ImageGroup, 512>;

/// Reads the directory of the current episode's image archive, "IMG.%EP%". An absent group's Images and
/// Duplicate are left as they were. A missing archive leaves all groups as they were.
///
/// The archive: 512 offsets of 4 bytes, 512 code records of 90 bytes, and anywhere the image records: width,
/// height (a byte each), two 32-bit numbers, then width x height pixel bytes, column by column, each from top
/// to bottom.
void ReadImageArchive(const GameFolder& game, ImageGroups& groups);

/// Decodes one image, which the directory must have, into the bytes of an 8-bit BMP file (see AddBMPHeader)
/// that has the colours of Palette.
std::vector<std::uint8_t> ReadImage(const GameFolder& game, const ImageGroups& groups, std::int32_t group,
                                    std::int32_t image);

} // namespace morvane
