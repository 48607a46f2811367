#include "DemoSounds.h"

#include "Archives.h"
#include "DemoEffects.h"
#include "DemoInstruments.h"
#include "DemoSongs.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace morvane::demo {

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes FromText(std::string_view text) { return {text.begin(), text.end()}; }

class SoundArchive {
  public:
    SoundArchive() {
        // Without data of their own, records are 0, 0.
        entries.resize(encode::SoundEntryCount);
        for (encode::Entry& entry : entries) entry.Offset = 0;
    }

    void Add(int number, Bytes data) {
        if (data.empty() || data.size() > std::numeric_limits<std::uint16_t>::max())
            throw std::length_error("a sound entry has 1 to 65535 bytes");
        encode::Entry& entry = Free(number);
        entry.Data = std::move(data);
        entry.Offset.reset();
    }

    void SetRecord(int number, std::uint16_t size, std::int32_t offset) {
        encode::Entry& entry = Free(number);
        entry.Size = size;
        entry.Offset = offset;
    }

    [[nodiscard]] Bytes Encoded() const { return encode::EncodeEntryTable(entries, entries.size()); }

  private:
    encode::Entry& Free(int number) {
        encode::Entry& entry = entries.at(static_cast<std::size_t>(number));
        if (!entry.Data.empty() || entry.Size) throw std::logic_error("two sound entries of one number");
        return entry;
    }

    std::vector<encode::Entry> entries;
};

} // namespace

std::vector<std::uint8_t> MakeSoundArchive() {
    SoundArchive archive;
    archive.Add(1, MakeHallBank());
    archive.Add(96, MakeCaveBank());
    for (DemoSong& song : MakeSongs()) archive.Add(song.Entry, std::move(song.Bytes));
    for (DemoEffect& effect : MakeEffects()) archive.Add(effect.Entry, std::move(effect.Bytes));

    // Data of no known kind, two of them close to one.
    archive.Add(3, FromText("Morvane demo sounds. Songs from 7, effects from 64.\r\n"));
    archive.Add(60, FromText("creative voice file\x1A, but in small letters\r\n"));
    archive.Add(100, FromText("MThx is one letter away from a song\r\n"));
    archive.Add(145, FromText("\x7F"));

    // Records of no entry: size without position, position without size, position before the start of the
    // file.
    archive.SetRecord(5, 40, 0);
    archive.SetRecord(10, 0, 5000);
    archive.SetRecord(50, 1200, -4);
    archive.SetRecord(120, 65'535, std::numeric_limits<std::int32_t>::min());
    return archive.Encoded();
}

} // namespace morvane::demo
