#pragma once

#include "SoundKinds.h"

#include <cstdint>
#include <string>

namespace morvane {

/// Decimal text, filled on its left with "0" to the width; longer text is never cut.
std::string PadNumber(std::int32_t value, std::int32_t width);

/// File name of an exported image: "Picture 1-012-01.bmp" for the first image (index 0) of group 12 in
/// episode 1.
std::string PictureFileName(std::int32_t episode, std::int32_t group, std::int32_t image);

/// File name of an exported sound entry of a recognised kind, such as "Song 007.mid"; every instrument bank
/// has the same name.
std::string SoundFileName(SoundKind kind, std::int32_t number);

} // namespace morvane
