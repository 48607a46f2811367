#pragma once

#include "Archives.h"

namespace morvane::demo {

/// The bytes of IMG.n: walls and doors in the groups 1 to 20, objects from 30, creatures from 100, panels in
/// 511.
encode::ByteVector MakeImageArchive(int episode);

} // namespace morvane::demo
