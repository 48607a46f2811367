#pragma once

#include "Archives.h"

namespace morvane::demo {

/// The bytes of MAP.n: the levels of one episode, with the codes that its symbol file defines.
encode::ByteVector MakeMapArchive(int episode);

} // namespace morvane::demo
