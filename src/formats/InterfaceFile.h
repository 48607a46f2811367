#pragma once

#include "GameFolder.h"

#include <array>
#include <cstdint>

namespace morvane {

/// One record of the interface file's table.
struct InterfaceEntry {
    std::uint32_t Size = 0;  ///< an unsigned 16-bit number in the file
    std::int32_t Offset = 0; ///< byte position, as stored
};

using InterfaceTable = std::array<InterfaceEntry, 32>;

/// Reads the table at the start of UIF.DAT: 32 records of a 16-bit size and a 32-bit offset. True when done;
/// a failure leaves the entries as they were.
bool LoadInterfaceFile(const GameFolder& game, InterfaceTable& entries);

} // namespace morvane
