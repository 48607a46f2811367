#include "NumberText.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace morvane {

namespace {

NumberText ScanHex(std::string_view text) {
    constexpr std::size_t Prefix = 2; // "&H"
    std::uint64_t value = 0;
    const char* begin = text.data() + Prefix;
    const auto [end, error] = std::from_chars(begin, text.data() + text.size(), value, 16);
    if (end == begin) return {};
    const bool fits = error == std::errc() && value <= std::numeric_limits<std::int32_t>::max();
    return {static_cast<std::size_t>(end - text.data()),
            fits ? std::optional(static_cast<std::int32_t>(value)) : std::nullopt};
}

/// Tells which way a decimal number lies outside the range of floating-point numbers. Returns true when it is
/// as good as 0, false when it is far too large.
bool IsTiny(std::string_view number) {
    const std::size_t exponent = number.find_first_of("eE");
    if (exponent != std::string_view::npos) return number[exponent + 1] == '-';
    return number[number.find_first_not_of("-0")] == '.';
}

NumberText ScanDecimal(std::string_view text) {
    const std::size_t plus = text.starts_with('+') ? 1 : 0;
    const std::string_view number = text.substr(plus);
    // What the standard library reads besides: "inf", "nan", and a second sign.
    const std::size_t start = plus == 0 && number.starts_with('-') ? 1 : 0;
    if (start == number.size() || number.find_first_of("0123456789.", start) != start) return {};
    double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (end == number.data()) return {};
    const auto length = static_cast<std::size_t>(end - number.data());
    if (error == std::errc::result_out_of_range)
        value = IsTiny(number.substr(0, length)) ? 0 : std::numeric_limits<double>::infinity();
    return {plus + length, RoundedToLong(value)};
}

} // namespace

std::optional<std::int32_t> RoundedToLong(double number) {
    const double whole = std::nearbyint(number);
    const bool fits = whole >= std::numeric_limits<std::int32_t>::min() &&
                      whole <= std::numeric_limits<std::int32_t>::max(); // false for what is no number
    return fits ? std::optional(static_cast<std::int32_t>(whole)) : std::nullopt;
}

NumberText ScanNumber(std::string_view text) {
    return text.starts_with("&H") ? ScanHex(text) : ScanDecimal(text);
}

NumberText WholeNumber(std::string_view text) {
    const std::size_t start = text.find_first_not_of(' ');
    if (start == std::string_view::npos) return {};
    text = text.substr(start, text.find_last_not_of(' ') + 1 - start);
    const NumberText number = ScanNumber(text);
    return number.Length == text.size() ? number : NumberText();
}

} // namespace morvane
