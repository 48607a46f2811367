#include "IbkWriter.h"

#include <cstddef>
#include <stdexcept>

namespace morvane::encode {

std::vector<std::uint8_t> InstrumentBank(std::span<const Instrument, 128> instruments) {
    constexpr std::size_t nameLength = 9;
    std::vector<std::uint8_t> bytes = {'I', 'B', 'K', 0x1A};
    for (const Instrument& instrument : instruments)
        bytes.insert(bytes.end(), instrument.Registers.begin(), instrument.Registers.end());
    for (const Instrument& instrument : instruments) {
        if (instrument.Name.size() >= nameLength)
            throw std::length_error("an instrument's name has at most 8 characters");
        bytes.insert(bytes.end(), instrument.Name.begin(), instrument.Name.end());
        bytes.insert(bytes.end(), nameLength - instrument.Name.size(), 0);
    }
    return bytes;
}

} // namespace morvane::encode
