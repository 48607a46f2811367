#include "GameFile.h"

#include "Failure.h"
#include "Paths.h"

#include <algorithm>

namespace morvane {

namespace {

// Pages in a window. One that goes on where the last one ended is large; one somewhere else only holds what
// is asked for and a little more, since the numbers there may stand alone between large blocks that nobody
// looks at.
constexpr std::size_t LargeWindow = 64;
constexpr std::size_t SmallWindow = 2;
constexpr std::int64_t NearGap = 2048;

File OpenGameFile(const GameFolder& game, std::string_view name) {
    const std::string path = game.GameFilePath(name);
    if (std::optional<File> file = File::OpenForReading(path)) return std::move(*file);
    const std::string other = FindInAnyCase(path);
    if (std::optional<File> file = File::OpenForReading(other)) return std::move(*file);
    throw Failure(FileNotFoundError, game.ProgramName, path + " not found.");
}

} // namespace

GameFile::GameFile(const GameFolder& game, std::string_view name) : Opened(OpenGameFile(game, name)) {}

void GameFile::Read(std::int64_t position, Bytes bytes) const {
    if (position < 0) {
        const auto missing =
            std::min(static_cast<std::uint64_t>(-(position + 1)) + 1, std::uint64_t{bytes.size()});
        std::fill_n(bytes.begin(), missing, std::uint8_t{0});
        bytes = bytes.subspan(missing);
        position = 0;
    }
    const std::size_t count = bytes.empty() ? 0 : Opened.ReadAt(position, bytes);
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(count), bytes.end(), std::uint8_t{0});
}

ConstBytes GameFile::MoveWindow(std::int64_t position, std::size_t count) {
    const bool goesOn =
        !Buffer.empty() && position >= BufferStart && position < BufferStart + BufferLength() + NearGap;
    Buffer.resize(goesOn ? LargeWindow : SmallWindow);
    const std::int64_t start = position & (static_cast<std::int64_t>(PageSize) - 1);
    BufferStart = position - start;
    Read(BufferStart, {Buffer.front().data(), Buffer.size() * PageSize});
    return {Buffer.front().data() + start, count};
}

} // namespace morvane
