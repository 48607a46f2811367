#pragma once

#include "Archives.h"
#include "TempFolder.h"

namespace morvane {

/// A small complete game folder whose parts a test may change before it writes them, and the files that
/// exports of it must give.
struct SampleGame {
    SampleGame() : Maps(3), Sounds(18) {
        for (std::size_t i = 0; i < Colors.size(); ++i) Colors[i] = {Byte(i), Byte(255 - i), Byte(i / 2)};
        for (const int group : {2, 3, 7}) Groups[group] = MakeGroup(group, group % 3 + 1);
        for (std::size_t m = 0; m < Maps.size(); ++m) Maps[m].fill({Byte(m), 0});
        Sounds[2].Data = Text("MThd song");
        Sounds[4].Data = Text("MThx no song");
        Sounds[9].Data = Text("IBK\x1A bank");
        Sounds[17].Data = Text("Creative Voice File\x1A effect");
    }

    static std::uint8_t Byte(auto number) { return static_cast<std::uint8_t>(number); }
    static ByteVector Text(const std::string& text) { return {text.begin(), text.end()}; }

    /// Images whose size and pixels tell group and index.
    static encode::Group MakeGroup(int group, int count) {
        encode::Group made{{Byte(0xA0 + group)}, {}, false, {}, {}};
        for (int k = 0; k < count; ++k)
            made.Images.push_back(
                {Byte(group + k), Byte(3 + k), 0, 0,
                 ByteVector(std::size_t{1} * Byte(group + k) * Byte(3 + k), Byte(16 * group + k))});
        return made;
    }

    /// The game as its archives of an episode hold it: in episodes 2 and 3 every image and map bears a mark.
    [[nodiscard]] SampleGame InEpisode(int episode) const {
        SampleGame marked = *this;
        for (auto& [number, group] : marked.Groups)
            for (encode::Image& image : group.Images)
                for (int i = 0; std::uint8_t & pixel : image.Pixels) pixel ^= Byte(5 * ++i * (episode - 1));
        for (encode::Map& map : marked.Maps) map.back().Plane1 ^= Byte(episode - 1);
        return marked;
    }

    void Write(const TempFolder& folder, const std::vector<int>& episodes = {1, 2, 3}) const {
        folder.Write("GAME.PAL", encode::EncodePalette(Colors));
        folder.Write("UIF.DAT", encode::EncodeEntryTable({}, encode::InterfaceEntryCount));
        folder.Write("SND.DAT", encode::EncodeEntryTable(Sounds, encode::SoundEntryCount));
        for (const int episode : episodes) {
            folder.Write("IMG." + std::to_string(episode), EncodeImageArchive(InEpisode(episode).Groups));
            folder.Write("MAP." + std::to_string(episode), EncodeMapArchive(InEpisode(episode).Maps));
        }
    }

    /// "Picture 1-002-03.bmp" for the third image of group 2 in episode 1.
    static std::string ImageFileName(int episode, int group, int image) {
        std::array<char, 40> name{};
        std::snprintf(name.data(), name.size(), "Picture %d-%03d-%02d.bmp", episode, group, image + 1);
        return name.data();
    }

    /// What exports of all images of an episode must write: 8-bit BMP files by name, made of rows of pixels.
    [[nodiscard]] Contents ImageFiles(int episode) const {
        Contents files;
        for (const auto& [number, group] : InEpisode(episode).Groups)
            for (int k = 0; const encode::Image& image : group.Images) {
                const int size = 1078 + (image.Width + 3) / 4 * 4 * image.Height;
                ByteVector bmp{'B', 'M', Byte(size), Byte(size >> 8), Byte(size >> 16), 0, 0, 0, 0, 0, 54, 4,
                               0,   0,   40};
                for (const int byte : {0, 0, 0, +image.Width, 0, 0, 0, +image.Height, 0, 0, 0, 1, 0, 8})
                    bmp.push_back(Byte(byte));
                bmp.resize(54);
                for (const auto& [red, green, blue] : Colors) bmp.insert(bmp.end(), {blue, green, red, 0});
                for (auto row = image.Pixels.end(); row != image.Pixels.begin(); row -= image.Width) {
                    bmp.insert(bmp.end(), row - image.Width, row);
                    bmp.resize((bmp.size() + 1) / 4 * 4 + 2); // the rows begin at byte 1078
                }
                files[ImageFileName(episode, number, k++)].assign(bmp.begin(), bmp.end());
            }
        return files;
    }

    /// What exports of all sounds must write.
    [[nodiscard]] Contents SoundFiles() const {
        const auto text = [this](std::size_t n) {
            return std::string(Sounds[n].Data.begin(), Sounds[n].Data.end());
        };
        return {{"Morvane.ibk", text(9)}, {"Song 002.mid", text(2)}, {"Sound 017.voc", text(17)}};
    }

    std::array<encode::Color, 256> Colors{};
    std::map<int, encode::Group> Groups;
    std::vector<encode::Map> Maps;
    std::vector<encode::Entry> Sounds;
};

} // namespace morvane
