#include "GameFile.h"

#include "Failure.h"

#include <algorithm>

namespace morvane {

namespace {

File OpenGameFile(const GameFolder& game, std::string_view name) {
    const std::string path = game.GameFilePath(name);
    if (std::optional<File> file = File::OpenNormal(path)) return std::move(*file);
    if (std::optional<File> file = File::OpenNormal(game.ExistingPath(path))) return std::move(*file);
    throw Failure(FileNotFoundError, path + " not found.");
}

} // namespace

GameFile::GameFile(const GameFolder& game, std::string_view name) : Opened(OpenGameFile(game, name)) {}

void GameFile::Read(std::int64_t position, Bytes bytes) const {
    const auto before = static_cast<std::size_t>(std::clamp<std::int64_t>(-position, 0, std::ssize(bytes)));
    const Bytes inside = bytes.subspan(before);
    const std::size_t count = inside.empty() ? 0 : Opened.ReadAt(std::max<std::int64_t>(position, 0), inside);
    std::ranges::fill(bytes.first(before), std::uint8_t{0});
    std::ranges::fill(inside.subspan(count), std::uint8_t{0});
}

} // namespace morvane
