#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace morvane {

/// The episode argument that stands for the episode in use.
inline constexpr std::int32_t EpisodeInUse = -1;

/// The game folder and episode in use, and the rules that turn the name of a game file into its path. Game
/// files come from a system without case in file names: one that is missing under its exact name is found
/// under another case of it.
struct GameFolder {
    std::string GamePath;            ///< full path of the folder; may end in a separator
    std::int32_t CurrentEpisode = 0; ///< 1 to 3; 0 until an episode has been chosen

    /// The name with every "%EP%" replaced by the episode number in decimal.
    [[nodiscard]] std::string ExpandEpisode(std::string_view name, std::int32_t episode = EpisodeInUse) const;

    /// Full path of a game file, given its name or a template with "%EP%".
    [[nodiscard]] std::string GameFilePath(std::string_view name, std::int32_t episode = EpisodeInUse) const;

    /// The path under which the game file of that path exists as a normal file: its exact name, else the
    /// other case under which it was found last, else the first other case in byte order; an empty text when
    /// there is none.
    [[nodiscard]] std::string ExistingPath(const std::string& path) const;

    /// True when the game file of that path exists as a normal file, in whatever case.
    [[nodiscard]] bool FileExists(const std::string& path) const { return !ExistingPath(path).empty(); }

    /// Where game files were found in another case, by exact path; each is checked before it is used.
    mutable std::map<std::string, std::string> FoundLast{};
};

} // namespace morvane
