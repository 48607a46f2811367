#include "AnyValue.h"

#include "Failure.h"
#include "NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace morvane {

namespace {

Failure Overflow() { return {OverflowError, "clsINI", "Overflow"}; }

template <typename Number>
std::int32_t WholeInRange(Number number) {
    constexpr auto smallest = static_cast<Number>(std::numeric_limits<std::int32_t>::min());
    constexpr auto largest = static_cast<Number>(std::numeric_limits<std::int32_t>::max());
    if (number >= smallest && number <= largest) return static_cast<std::int32_t>(number);
    throw Overflow(); // what is no number at all included
}

} // namespace

std::string AnyValue::ToText() const {
    if (const auto* text = std::get_if<std::string>(&Content)) return *text;
    if (const auto* whole = std::get_if<std::int64_t>(&Content)) return std::to_string(*whole);
    const auto* number = std::get_if<double>(&Content);
    if (number == nullptr) return {};
    std::array<char, 512> digits{}; // the longest has a sign, "0.", 323 zeros and 17 digits
    const auto written =
        std::to_chars(digits.data(), digits.data() + digits.size(), *number, std::chars_format::fixed);
    return {digits.data(), written.ptr};
}

std::int32_t AnyValue::ToLong() const {
    if (const auto* whole = std::get_if<std::int64_t>(&Content)) return WholeInRange(*whole);
    if (const auto* number = std::get_if<double>(&Content))
        return WholeInRange(*number - std::remainder(*number, 1.0)); // its remainder is of the even neighbour
    const auto* text = std::get_if<std::string>(&Content);
    if (text == nullptr) return 0;
    const NumberText read = WholeNumber(*text);
    if (read.Length == 0) throw Failure(WrongTypeError, "clsINI", "Type mismatch");
    if (!read.Value) throw Overflow();
    return *read.Value;
}

} // namespace morvane
