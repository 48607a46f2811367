#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace morvane {

/// A default that may be a number or a text, or not be given at all.
class AnyValue {
  public:
    AnyValue() = default;
    template <std::integral Number>
    requires(!std::same_as<Number, bool> &&
             (std::signed_integral<Number> || sizeof(Number) < sizeof(std::int64_t))) AnyValue(Number number)
        : Content(std::int64_t{number}) {}
    AnyValue(double number) : Content(number) {}
    AnyValue(std::string text) : Content(std::move(text)) {}
    AnyValue(const char* text) : Content(std::string(text)) {}

    /// The text itself, or the number in decimal without an exponent; empty when not given.
    [[nodiscard]] std::string ToText() const;

    /// The number rounded to a whole one, a half to the even neighbour; 0 when not given. Fails with a
    /// Failure when it lies outside 32 bits, or when it is a text that is not wholly a number.
    [[nodiscard]] std::int32_t ToLong() const;

  private:
    std::variant<std::monostate, std::int64_t, double, std::string> Content;
};

} // namespace morvane
