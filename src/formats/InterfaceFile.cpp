#include "InterfaceFile.h"

#include "GameFile.h"

namespace morvane {

bool LoadInterfaceFile(const GameFolder& game, InterfaceTable& entries) {
    constexpr std::size_t RecordSize = 6;
    std::array<std::uint8_t, RecordSize * std::tuple_size_v<InterfaceTable>> records{};
    GameFile(game, "UIF.DAT").Read(0, records);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const ConstBytes record = ConstBytes(records).subspan(RecordSize * i, RecordSize);
        entries[i] = {GameFile::WordAt(record), GameFile::LongAt(record.subspan(2))};
    }
    return true;
}

} // namespace morvane
