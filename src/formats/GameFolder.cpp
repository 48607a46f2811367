#include "GameFolder.h"

#include "Paths.h"

namespace morvane {

std::string GameFolder::ExpandEpisode(std::string_view name, std::int32_t episode) const {
    constexpr std::string_view Placeholder = "%EP%";
    const std::string number = std::to_string(episode == EpisodeInUse ? CurrentEpisode : episode);
    std::string expanded;
    for (;;) {
        const std::size_t found = name.find(Placeholder);
        expanded += name.substr(0, found);
        if (found == std::string_view::npos) return expanded;
        expanded += number;
        name.remove_prefix(found + Placeholder.size());
    }
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
