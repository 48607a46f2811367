#include "SoundArchive.h"

#include "GameFile.h"
#include "LittleEndian.h"

#include <string_view>

namespace morvane {

namespace {

constexpr const char* ArchiveName = "SND.DAT";

bool SignatureAt(const GameFile& archive, std::int32_t position, std::string_view signature) {
    std::string bytes(signature.size(), '\0');
    archive.Read(position, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes == signature;
}

SoundKind KindAt(const GameFile& archive, std::int32_t position) {
    for (const SoundKindRow& row : SoundKinds)
        if (SignatureAt(archive, position, row.Signature)) return row.Kind;
    return SoundKind::None;
}

} // namespace

void ReadSoundArchive(const GameFolder& game, SoundTable& entries) {
    constexpr std::size_t RecordSize = 6;
    const GameFile archive(game, ArchiveName);
    std::array<std::uint8_t, RecordSize * std::tuple_size_v<SoundTable>> records{};
    archive.Read(0, records);
    for (std::size_t n = 0; n < entries.size(); ++n) {
        SoundEntry& entry = entries[n];
        entry.Size = WordAt(records, RecordSize * n);
        entry.Offset = static_cast<std::int32_t>(LongAt(records, RecordSize * n + 2));
        const bool present = entry.Offset > 0 && entry.Size > 0;
        entry.Kind = present ? KindAt(archive, entry.Offset) : SoundKind::None;
    }
}

std::vector<std::uint8_t> ReadSoundEntry(const GameFolder& game, const SoundEntry& entry) {
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(entry.Size));
    GameFile(game, ArchiveName).Read(entry.Offset, bytes);
    return bytes;
}

} // namespace morvane
