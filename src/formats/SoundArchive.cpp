#include "SoundArchive.h"

#include "GameFile.h"

#include <algorithm>
#include <string_view>

namespace morvane {

namespace {

constexpr const char* ArchiveName = "SND.DAT";

bool SignatureAt(GameFile& archive, std::int32_t position, std::string_view signature) {
    const ConstBytes bytes = archive.Window(position, signature.size());
    return std::equal(bytes.begin(), bytes.end(), signature.begin(),
                      [](std::uint8_t byte, char c) { return byte == static_cast<std::uint8_t>(c); });
}

SoundKind KindAt(GameFile& archive, std::int32_t position) {
    if (SignatureAt(archive, position, "IBK")) return SoundKind::InstBank;
    if (SignatureAt(archive, position, "MThd")) return SoundKind::Midi;
    if (SignatureAt(archive, position, "Creative Voice File")) return SoundKind::Voc;
    return SoundKind::None;
}

} // namespace

void ReadSoundArchive(const GameFolder& game, SoundTable& entries) {
    constexpr std::size_t RecordSize = 6;
    GameFile archive(game, ArchiveName);
    std::array<std::uint8_t, RecordSize * std::tuple_size_v<SoundTable>> records{};
    archive.Read(0, records);
    SoundTable fresh;
    for (std::size_t n = 0; n < fresh.size(); ++n) {
        const ConstBytes record = ConstBytes(records).subspan(RecordSize * n, RecordSize);
        SoundEntry& entry = fresh[n];
        entry.Size = GameFile::WordAt(record);
        entry.Offset = GameFile::LongAt(record.subspan(2));
        if (entry.Offset > 0 && entry.Size > 0) entry.Kind = KindAt(archive, entry.Offset);
    }
    entries = fresh;
}

std::vector<std::uint8_t> ReadSoundEntry(const GameFolder& game, const SoundEntry& entry) {
    const GameFile archive(game, ArchiveName);
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(entry.Size));
    archive.Read(entry.Offset, bytes);
    return bytes;
}

} // namespace morvane
