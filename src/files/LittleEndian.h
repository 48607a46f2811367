#pragma once

#include "File.h"

#include <cstddef>
#include <cstdint>

namespace morvane {

/// The number that the 2 bytes from a position hold, lowest byte first.
inline std::uint16_t WordAt(ConstBytes bytes, std::size_t position) {
    return static_cast<std::uint16_t>(bytes[position] | bytes[position + 1] << 8);
}

/// The number that the 4 bytes from a position hold, lowest byte first.
inline std::uint32_t LongAt(ConstBytes bytes, std::size_t position) {
    return WordAt(bytes, position) | static_cast<std::uint32_t>(WordAt(bytes, position + 2)) << 16;
}

/// Writes a number into the bytes from a position, lowest byte first: 2 or 4 of them.
inline void PutWord(Bytes bytes, std::size_t position, std::uint16_t value) {
    bytes[position] = static_cast<std::uint8_t>(value);
    bytes[position + 1] = static_cast<std::uint8_t>(value >> 8);
}
inline void PutLong(Bytes bytes, std::size_t position, std::uint32_t value) {
    PutWord(bytes, position, static_cast<std::uint16_t>(value));
    PutWord(bytes, position + 2, static_cast<std::uint16_t>(value >> 16));
}

} // namespace morvane
