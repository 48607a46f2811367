#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace morvane::encode {

/// One FM instrument of two operators. Registers holds, modulator before carrier: characteristic (2 bytes),
/// scaling and level (2), attack and decay (2), sustain and release (2), wave (2), then feedback and
/// connection, percussion voice, transposition, drum pitch and 2 reserved bytes.
struct Instrument {
    std::string Name; ///< at most 8 characters
    std::array<std::uint8_t, 16> Registers{};
};

/// An instrument bank file of 3,204 bytes: "IBK" 0x1A, 16 register bytes for each instrument, then their
/// names in 9 bytes each, filled with zeros. A name that is too long raises std::length_error.
std::vector<std::uint8_t> InstrumentBank(std::span<const Instrument, 128> instruments);

} // namespace morvane::encode
