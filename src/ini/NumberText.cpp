#include "NumberText.h"

#include <limits>

namespace morvane {

namespace {

constexpr std::int64_t Smallest = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t Largest = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t ExponentLimit = 1'000'000'000'000'000; // far beyond the length of any text

std::string_view DigitsAt(std::string_view text, std::size_t start) {
    std::size_t end = start;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9') ++end;
    return start < end ? text.substr(start, end - start) : std::string_view();
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

NumberText ScanHex(std::string_view text) {
    std::int64_t value = 0;
    std::size_t at = 2; // behind "&H"
    for (; at < text.size() && HexDigit(text[at]) >= 0; ++at)
        if (value <= Largest) value = 16 * value + HexDigit(text[at]);
    if (at == 2) return {};
    if (value > Largest) return {at, std::nullopt};
    return {at, static_cast<std::int32_t>(value)};
}

/// Rounds digits times a power of ten. Works on the digits themselves, so that however many there are, a half
/// is told from what only comes close to it.
std::optional<std::int32_t> Rounded(bool negative, std::string_view whole, std::string_view fraction,
                                    std::int64_t exponent) {
    const std::size_t count = whole.size() + fraction.size();
    const auto digit = [&](std::size_t i) {
        return (i < whole.size() ? whole[i] : fraction[i - whole.size()]) - '0';
    };
    std::size_t at = 0;
    while (at < count && digit(at) == 0) ++at;
    // How many digits stand before the point; the first of them is not 0, so that the loop below ends soon.
    std::int64_t before = static_cast<std::int64_t>(whole.size()) - static_cast<std::int64_t>(at) + exponent;
    if (at == count || before < 0) return 0;
    std::int64_t value = 0;
    for (; before > 0; --before) {
        value = 10 * value + (at < count ? digit(at) : 0);
        if (value > Largest + 1) return std::nullopt;
        if (at < count) ++at;
    }
    if (at < count && digit(at) >= 5) {
        bool up = digit(at) > 5 || value % 2 != 0;
        while (!up && ++at < count) up = digit(at) != 0;
        if (up) ++value;
    }
    if (negative) value = -value;
    if (value < Smallest || value > Largest) return std::nullopt;
    return static_cast<std::int32_t>(value);
}

/// Reads an exponent with its letter; how many bytes it takes, 0 when there is none.
std::size_t ScanExponent(std::string_view text, std::int64_t& exponent) {
    if (text.empty() || (text[0] != 'e' && text[0] != 'E')) return 0;
    const bool negative = text.size() > 1 && text[1] == '-';
    const std::size_t start = negative || (text.size() > 1 && text[1] == '+') ? 2 : 1;
    const std::string_view digits = DigitsAt(text, start);
    if (digits.empty()) return 0;
    for (const char c : digits)
        if (exponent < ExponentLimit) exponent = 10 * exponent + (c - '0');
    if (negative) exponent = -exponent;
    return start + digits.size();
}

NumberText ScanDecimal(std::string_view text) {
    const bool negative = text.starts_with('-');
    std::size_t at = negative || text.starts_with('+') ? 1 : 0;
    const std::string_view whole = DigitsAt(text, at);
    at += whole.size();
    std::string_view fraction;
    if (at < text.size() && text[at] == '.') {
        fraction = DigitsAt(text, at + 1);
        at += 1 + fraction.size();
    }
    if (whole.empty() && fraction.empty()) return {};
    std::int64_t exponent = 0;
    at += ScanExponent(text.substr(at), exponent);
    return {at, Rounded(negative, whole, fraction, exponent)};
}

} // namespace

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
