#include "GameFolder.h"

#include "Paths.h"

namespace morvane {

std::string GameFolder::ExpandEpisode(std::string_view name, std::int32_t episode) const {
    constexpr std::string_view Placeholder = "%EP%";
    const std::string number = std::to_string(episode == EpisodeInUse ? CurrentEpisode : episode);
    std::string expanded(name);
    for (std::size_t at = 0; (at = expanded.find(Placeholder, at)) != std::string::npos; at += number.size())
        expanded.replace(at, Placeholder.size(), number);
    return expanded;
}

std::string GameFolder::GameFilePath(std::string_view name, std::int32_t episode) const {
    std::string path = GamePath;
    if (!path.ends_with(PathSeparator)) path += PathSeparator;
    return path += ExpandEpisode(name, episode);
}

std::string GameFolder::ExistingPath(const std::string& path) const {
    if (IsNormalFile(path)) return path;
    const auto last = FoundLast.find(path);
    if (last != FoundLast.end() && IsNormalFile(last->second)) return last->second;
    return FoundLast[path] = FindInOtherCase(path);
}

} // namespace morvane
