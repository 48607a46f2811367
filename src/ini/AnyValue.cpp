#include "AnyValue.h"

#include "Failure.h"
#include "NumberText.h"

#include <array>
#include <charconv>

namespace morvane {

std::string AnyValue::ToText() const {
    if (const auto* text = std::get_if<std::string>(&Content)) return *text;
    const auto* number = std::get_if<double>(&Content);
    if (number == nullptr) return {};
    std::array<char, 512> digits{}; // the longest has a sign, "0.", 323 zeros and 17 digits
    const auto written = std::to_chars(digits.begin(), digits.end(), *number, std::chars_format::fixed);
    return {digits.data(), written.ptr};
}

std::int32_t AnyValue::ToLong() const {
    std::optional<std::int32_t> number = 0;
    if (const auto* given = std::get_if<double>(&Content)) number = RoundedToLong(*given);
    if (const auto* text = std::get_if<std::string>(&Content)) {
        const NumberText read = WholeNumber(*text);
        if (read.Length == 0) throw Failure(WrongTypeError, "clsINI", "Type mismatch");
        number = read.Value;
    }
    if (!number) throw Failure(OverflowError, "clsINI", "Overflow");
    return *number;
}

} // namespace morvane
