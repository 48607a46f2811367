#pragma once

#include "GameFolder.h"

namespace morvane {

/// Reads GAME.PAL into Palette: 256 triples red, green, blue from byte 1156, taken unchanged. True when done;
/// a failure leaves Palette as it was.
bool LoadPalette(const GameFolder& game);

} // namespace morvane
