#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace morvane {

/// A default that may be a number or a text, or not be given at all. A truth value is refused: it is neither.
class AnyValue {
  public:
    AnyValue() = default;
    AnyValue(bool) = delete;
    AnyValue(std::int32_t number) : Content(static_cast<double>(number)) {}
    AnyValue(double number) : Content(number) {}
    AnyValue(std::string text) : Content(std::move(text)) {}
    AnyValue(const char* text) : Content(std::string(text)) {}

    /// The text itself, or the number in decimal without an exponent; empty when not given.
    [[nodiscard]] std::string ToText() const;

    /// The number rounded to a whole one, a half to the even neighbour; 0 when not given. Fails with error 6
    /// when it lies outside 32 bits, with error 13 when it is a text that is not wholly a number.
    [[nodiscard]] std::int32_t ToLong() const;

  private:
    std::variant<std::monostate, double, std::string> Content;
};

} // namespace morvane
