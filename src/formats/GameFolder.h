#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace morvane {

/// The episode argument that stands for the episode in use.
inline constexpr std::int32_t EpisodeInUse = -1;

/// The game folder and episode in use, and the rules that turn the name of a game file into its path.
struct GameFolder {
    std::string GamePath;            ///< full path of the folder; may end in a separator
    std::int32_t CurrentEpisode = 0; ///< 1 to 3; 0 until an episode has been chosen
    std::string ProgramName;         ///< base name of the program file: the source of the not-found failure

    /// The name with every "%EP%" replaced by the episode number in decimal.
    [[nodiscard]] std::string ExpandEpisode(std::string_view name, std::int32_t episode = EpisodeInUse) const;

    /// Full path of a game file, given its name or a template with "%EP%".
    [[nodiscard]] std::string GameFilePath(std::string_view name, std::int32_t episode = EpisodeInUse) const;
};

/// True when the game file of that path exists as a normal file, under the name given or in another case of
/// it: game files come from a system that does not tell the two apart.
bool FileExists(const std::string& path);

} // namespace morvane
