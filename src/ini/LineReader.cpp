#include "LineReader.h"

#include <cstring>
#include <utility>

namespace morvane {

namespace {

constexpr std::size_t ChunkSize = 65536;

/// How many bytes come before the first CR; all when there is none.
std::size_t LengthToReturn(const std::uint8_t* begin, std::size_t count) {
    const void* found = std::memchr(begin, '\r', count);
    return found == nullptr ? count
                            : static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - begin);
}

} // namespace

LineReader::LineReader(const File& file)
    : Source(file), Chunk(std::make_unique_for_overwrite<std::uint8_t[]>(ChunkSize)) {}

std::optional<std::string> LineReader::Next() {
    std::string line;
    while (Begin < End || Fill()) {
        if (std::exchange(AfterReturn, false) && Chunk[Begin] == '\n') {
            ++Begin;
            continue;
        }
        const std::uint8_t* begin = Chunk.get() + Begin;
        const std::size_t length = LengthToReturn(begin, End - Begin);
        line.append(reinterpret_cast<const char*>(begin), length);
        Begin += length;
        if (Begin < End) {
            ++Begin;
            AfterReturn = true;
            return line;
        }
        // A line of many chunks gets all its memory at once instead of growing into ever larger copies.
        if (line.size() > ChunkSize && line.capacity() - line.size() < ChunkSize)
            line.reserve(line.size() + LengthAhead());
    }
    if (line.empty()) return std::nullopt;
    return line;
}

bool LineReader::Fill() {
    Begin = 0;
    End = Source.ReadAt(Position, {Chunk.get(), ChunkSize});
    Position += static_cast<std::int64_t>(End);
    return End > 0;
}

/// How many bytes there are from the next chunk on until the line ends. Overwrites the chunk, which must be
/// used up.
std::size_t LineReader::LengthAhead() {
    std::size_t length = 0;
    for (;;) {
        const std::size_t count =
            Source.ReadAt(Position + static_cast<std::int64_t>(length), {Chunk.get(), ChunkSize});
        const std::size_t part = LengthToReturn(Chunk.get(), count);
        length += part;
        if (count == 0 || part < count) return length;
    }
}

} // namespace morvane
