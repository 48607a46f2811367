#pragma once

#include "File.h"
#include "Picture.h"

namespace morvane {

/// The picture of an 8-bit BMP file as AddBMPHeader builds it: its pixel rows from byte 1078, in the colours
/// that Palette has now. A file of another depth gives a black picture of its size.
Picture PictureFromBMP(ConstBytes bytes);

} // namespace morvane
