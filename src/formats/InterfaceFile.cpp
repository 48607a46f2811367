#include "InterfaceFile.h"

#include "GameFile.h"
#include "LittleEndian.h"

namespace morvane {

bool LoadInterfaceFile(const GameFolder& game, InterfaceTable& entries) {
    constexpr std::size_t RecordSize = 6;
    std::array<std::uint8_t, RecordSize * std::tuple_size_v<InterfaceTable>> records{};
    GameFile(game, "UIF.DAT").Read(0, records);
    for (std::size_t i = 0; i < entries.size(); ++i)
        entries[i] = {WordAt(records, RecordSize * i),
                      static_cast<std::int32_t>(LongAt(records, RecordSize * i + 2))};
    return true;
}

} // namespace morvane
