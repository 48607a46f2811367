// Packs the demo game: from the ordinary files in the folders images, maps and sounds to the files that the
// game has. Reads and checks everything before it writes anything.
#include "Archives.h"
#include "DemoFiles.h"
#include "File.h"
#include "Paths.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <regex>
#include <set>
#include <string_view>

namespace {

using namespace morvane;
using encode::ByteVector;

/// The bytes of the packed files by their names.
using Game = std::map<std::string, ByteVector>;

/// Does something with each file of a folder: with its name, matched by a pattern that every name must fit,
/// and its bytes. What fails is told with the file's path.
void ForEachFile(const std::string& folder, const std::string& pattern,
                 const std::function<void(const std::smatch& name, const ByteVector& bytes)>& action) {
    // Shorter names come first, so that 10 comes behind 9.
    std::set<std::pair<std::size_t, std::string>> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        const bool droppedByADesktop = name.starts_with('.') || name == "Thumbs.db" || name == "desktop.ini";
        if (!droppedByADesktop) names.emplace(name.size(), name);
    }
    for (const auto& [length, name] : names) {
        const std::string path = JoinPath(folder, name);
        try {
            std::smatch match;
            Require(std::regex_match(name, match, std::regex(pattern)), "has a name unlike the others");
            std::ifstream file(path, std::ios::binary);
            Require(file.is_open(), "cannot be read");
            action(match, ByteVector(std::istreambuf_iterator<char>(file), {}));
        } catch (const std::exception& error) {
            throw std::runtime_error(path + ": " + error.what());
        }
    }
}

/// Makes GAME.PAL and IMG.1 to IMG.3.
void PackImages(const std::string& folder, Game& game) {
    std::map<std::string, std::map<int, encode::Group>> episodes;
    encode::Palette palette; // the colours of the first picture, which all others must have
    std::string first;
    const char* pattern = R"(Picture ([1-3])-(\d{3})-(\d\d|[1-9]\d\d)\.bmp)";
    ForEachFile(folder, pattern, [&](const std::smatch& name, const ByteVector& bytes) {
        const int groupNumber = std::stoi(name[2]);
        const std::size_t imageNumber = std::stoul(name[3]);
        Require(groupNumber >= 1 && groupNumber <= 511, "is of no group from 1 to 511");
        Require(imageNumber <= 255, "is one too many: a group has at most 255 images");
        encode::Group& group = episodes[name[1]][groupNumber];
        Require(imageNumber == group.Images.size() + 1, "is not the next image of its group");
        encode::Palette colors;
        group.Images.push_back(ReadBMP(bytes, colors));
        if (first.empty()) {
            first = name.str();
            palette = colors;
        }
        Require(colors == palette, "has other colours than " + first);
        group.Codes[0] = static_cast<std::uint8_t>(groupNumber % 256);
        group.Codes[1] = static_cast<std::uint8_t>(groupNumber / 256);
    });
    Require(!first.empty(), folder + ": has no pictures");
    game["GAME.PAL"] = encode::EncodePalette(palette);
    for (auto& [episode, groups] : episodes) {
        // A group of the same images as the group one number lower is stored as its duplicate.
        for (auto& [number, group] : groups)
            group.SharesLower = groups.contains(number - 1) && group.Images == groups[number - 1].Images;
        game["IMG." + episode] = encode::EncodeImageArchive(groups);
    }
}

/// Makes MAP.1 to MAP.3.
void PackMaps(const std::string& folder, Game& game) {
    std::map<std::string, std::vector<encode::Map>> episodes;
    const char* pattern = R"(Map ([1-3])-(\d|[1-9]\d)\.txt)";
    ForEachFile(folder, pattern, [&](const std::smatch& name, const ByteVector& bytes) {
        std::vector<encode::Map>& maps = episodes[name[1]];
        Require(std::stoul(name[2]) == maps.size(), "is not the next map of its episode");
        maps.push_back(ReadMapText({bytes.begin(), bytes.end()}));
    });
    for (const auto& [episode, maps] : episodes) game["MAP." + episode] = encode::EncodeMapArchive(maps);
}

/// Makes SND.DAT. The bank without a number becomes the last entry, as Export All leaves the last bank.
void PackSounds(const std::string& folder, Game& game) {
    std::vector<encode::Entry> entries(encode::SoundEntryCount);
    const char* pattern = R"(Song (\d{3})\.mid|Sound (\d{3})\.voc|Morvane (\d{3})\.ibk|Morvane\.ibk)";
    ForEachFile(folder, pattern, [&](const std::smatch& name, const ByteVector& bytes) {
        const std::string digits = name.str(1) + name.str(2) + name.str(3); // one of them at most is there
        const std::size_t number = digits.empty() ? entries.size() - 1 : std::stoul(digits);
        Require(number < entries.size(), "is of no entry from 0 to 159");
        Require(entries[number].Data.empty(), "has the entry of another file");
        Require(bytes.size() <= 65535,
                "has " + std::to_string(bytes.size()) + " bytes; an entry holds 65535");
        std::string beginning = "IBK";
        if (name[1].matched) beginning = "MThd";
        if (name[2].matched) beginning = "Creative Voice File";
        const bool begins = std::string(bytes.begin(), bytes.end()).starts_with(beginning);
        Require(begins, "does not begin with " + beginning);
        entries[number].Data = bytes;
    });
    game["SND.DAT"] = encode::EncodeEntryTable(entries, encode::SoundEntryCount);
}

constexpr const char* MarkName = "DEMO.TXT";
constexpr std::string_view MarkText =
    "the demo game of Morvane Extractor, packed by make-demo-game, which may replace it\n";

/// True for a folder that is missing, empty, or marked as one that holds a packed demo game.
bool MayBeReplaced(const std::string& folder) {
    return !std::filesystem::exists(folder) || std::filesystem::exists(JoinPath(folder, MarkName)) ||
           (std::filesystem::is_directory(folder) && std::filesystem::is_empty(folder));
}

void MakeGame(const std::string& demo, const std::string& folder) {
    Require(MayBeReplaced(folder),
            folder + ": is not empty and holds no " + MarkName + "; nothing is written");
    Game game;
    game[MarkName].assign(MarkText.begin(), MarkText.end());
    PackImages(JoinPath(demo, "images"), game);
    PackMaps(JoinPath(demo, "maps"), game);
    PackSounds(JoinPath(demo, "sounds"), game);
    // The viewer makes no use of what UIF.DAT holds: two entries of zeros.
    std::vector<encode::Entry> parts(2);
    for (encode::Entry& part : parts) part.Data.resize(16);
    game["UIF.DAT"] = encode::EncodeEntryTable(parts, encode::InterfaceEntryCount);

    std::filesystem::create_directories(folder);
    for (const std::string archive : {"IMG.1", "IMG.2", "IMG.3", "MAP.1", "MAP.2", "MAP.3"})
        std::filesystem::remove(JoinPath(folder, archive)); // one of an episode that is gone would stay
    for (const auto& [name, bytes] : game) WriteByteArray(JoinPath(folder, name), bytes, true);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("Usage: make-demo-game DEMO FOLDER (packs the folder demo/ into a game folder)\n", stderr);
        return 1;
    }
    try {
        MakeGame(argv[1], argv[2]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make-demo-game: %s\n", error.what());
        return 1;
    }
    return 0;
}
