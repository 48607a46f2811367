#include "Fuzz.h"
#include "InterfaceFile.h"
#include "Palette.h"
#include "SoundArchive.h"

#include <algorithm>
#include <cstring>
#include <string_view>

// The input is the palette, the interface file and the sound archive at once: what the three read hardly
// overlaps.

namespace morvane::fuzz {

namespace {

constexpr std::size_t LargestEntry = 65535;

// The entries of a directory may have 10 MiB together, which takes long and tells no more than the first of
// them.
constexpr std::ptrdiff_t MostBytes = 1 << 20;

void CheckPalette(const GameFolder& game, const ZeroExtended& file) {
    Check(LoadPalette(game), "the palette is read");
    for (std::int32_t i = 0; i < 256; ++i) {
        const PaletteEntry& color = Palette[static_cast<std::size_t>(i)];
        const std::int64_t triple = 1156 + 3 * i;
        Check(color.Red == file.At(triple) && color.Green == file.At(triple + 1) &&
                  color.Blue == file.At(triple + 2) && color.Reserved == 0,
              "a colour is its triple");
    }
}

void CheckInterface(const GameFolder& game, const ZeroExtended& file) {
    InterfaceTable table;
    Check(LoadInterfaceFile(game, table), "the interface file is read");
    for (std::int64_t position = 0; const InterfaceEntry& entry : table) {
        Check(entry.Size == file.Number(position, 2) && entry.Offset == file.Long(position + 2),
              "an interface entry is its record");
        position += 6;
    }
}

SoundKind ExpectedKind(const SoundEntry& entry, const ZeroExtended& file) {
    if (entry.Offset <= 0 || entry.Size <= 0) return SoundKind::None;
    const auto beginsWith = [&](std::string_view signature) {
        return std::all_of(signature.begin(), signature.end(),
                           [&, position = std::int64_t{entry.Offset}](char c) mutable {
                               return file.At(position++) == static_cast<std::uint8_t>(c);
                           });
    };
    if (beginsWith("IBK")) return SoundKind::InstBank;
    if (beginsWith("MThd")) return SoundKind::Midi;
    return beginsWith("Creative Voice File") ? SoundKind::Voc : SoundKind::None;
}

/// The entry's bytes are those of the file between zeros.
void CheckBytes(ConstBytes read, std::int64_t offset, ConstBytes file) {
    static const std::vector<std::uint8_t> zeros(LargestEntry);
    const auto begin = std::clamp<std::int64_t>(-offset, 0, std::ssize(read));
    const auto end = std::clamp<std::int64_t>(std::ssize(file) - offset, begin, std::ssize(read));
    const auto same = [&](std::int64_t from, std::int64_t to, ConstBytes expected, std::int64_t start) {
        return from == to || std::memcmp(read.data() + from, expected.data() + start,
                                         static_cast<std::size_t>(to - from)) == 0;
    };
    Check(same(0, begin, zeros, 0) && same(begin, end, file, offset + begin) &&
              same(end, std::ssize(read), zeros, 0),
          "an entry's bytes are those of the archive");
}

void CheckSounds(const GameFolder& game, ConstBytes bytes) {
    const ZeroExtended file(bytes);
    SoundTable table;
    ReadSoundArchive(game, table);
    std::ptrdiff_t bytesRead = 0;
    for (std::int64_t position = 0; const SoundEntry& entry : table) {
        Check(entry.Size == static_cast<std::int32_t>(file.Number(position, 2)) &&
                  entry.Offset == file.Long(position + 2),
              "a sound entry is its record");
        Check(entry.Kind == ExpectedKind(entry, file), "an entry's kind is that of its signature");
        position += 6;
        if ((bytesRead += entry.Size) > MostBytes) continue;
        const std::vector<std::uint8_t> read = ReadSoundEntry(game, entry);
        Check(std::ssize(read) == entry.Size, "an entry is as long as its record says");
        CheckBytes(read, entry.Offset, bytes);
    }
}

} // namespace

} // namespace morvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace morvane::fuzz;
    static const Scratch scratch;
    const morvane::ConstBytes bytes(data, size);
    for (const char* name : {"GAME.PAL", "UIF.DAT", "SND.DAT"}) (void)scratch.Write(name, bytes);
    CheckPalette(scratch.Game(), ZeroExtended(bytes));
    CheckInterface(scratch.Game(), ZeroExtended(bytes));
    CheckSounds(scratch.Game(), bytes);
    return 0;
}
