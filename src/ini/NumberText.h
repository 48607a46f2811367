#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace morvane {

/// A number read from a text.
struct NumberText {
    std::size_t Length = 0;            ///< bytes that it takes; 0 when there is no number
    std::optional<std::int32_t> Value; ///< rounded, a half to the even neighbour; nothing outside 32 bits
};

/// Rounds a number to a whole one, a half to the even neighbour. Returns nothing outside 32 bits.
std::optional<std::int32_t> RoundedToLong(double number);

/// Reads the longest number that a text begins with: an optional sign, decimal digits with an optional point
/// among or around them and an optional exponent, or "&H" and hexadecimal digits. Nothing is skipped.
NumberText ScanNumber(std::string_view text);

/// Reads a text that is one number from end to end, but for blanks (0x20) around it.
NumberText WholeNumber(std::string_view text);

} // namespace morvane
