#include "ExportAll.h"

#include "ExportNames.h"
#include "File.h"
#include "Paths.h"

namespace morvane {

void ExportAllImages(const LoadedGame& game, const std::string& folder) {
    for (int g = 1; g < std::ssize(game.Groups); ++g) {
        const ImageGroup& group = game.Groups[static_cast<std::size_t>(g)];
        if (group.Offset <= 0 || group.Duplicate) continue;
        for (int i = 0; i < std::ssize(group.Images); ++i) {
            const std::string name = PictureFileName(game.Folder.CurrentEpisode, g, i);
            WriteByteArray(JoinPath(folder, name), ReadImage(game.Folder, game.Groups, g, i), true);
        }
    }
}

void ExportAllSounds(const LoadedGame& game, const std::string& folder) {
    for (int n = 0; const SoundEntry& entry : game.SoundEntries) {
        const int number = n++;
        if (entry.Offset <= 0 || entry.Size <= 0 || entry.Kind == SoundKind::None) continue;
        const std::string name = SoundFileName(entry.Kind, number);
        WriteByteArray(JoinPath(folder, name), ReadSoundEntry(game.Folder, entry), true);
    }
}

} // namespace morvane
