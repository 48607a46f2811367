#pragma once

#include "Archives.h"
#include "GameFolder.h"
#include "TempFolder.h"

#include <map>

namespace morvane {

/// A small complete game folder whose parts a test may change before it writes them.
struct SampleGame {
    SampleGame() {
        for (std::size_t i = 0; i < Colors.size(); ++i) {
            const auto value = static_cast<std::uint8_t>(i);
            Colors[i] = {value, static_cast<std::uint8_t>(255 - value), static_cast<std::uint8_t>(value / 2)};
        }
        for (int group : {2, 3, 7}) Groups[group] = MakeGroup(group, group % 3 + 1);
        Maps.resize(3);
        for (std::size_t m = 0; m < Maps.size(); ++m) Maps[m].fill({static_cast<std::uint8_t>(m), 0});
        Sounds.resize(18);
        Sounds[1].Data = Text("IBK\x1A bank");
        Sounds[2].Data = Text("MThd song");
        Sounds[4].Data = Text("MThx no song");
        Sounds[17].Data = Text("Creative Voice File\x1A effect");
    }

    static ByteVector Text(const std::string& text) { return {text.begin(), text.end()}; }

    /// Images whose size and pixels tell group and index.
    static encode::Group MakeGroup(int group, int count) {
        encode::Group made;
        made.Codes[0] = static_cast<std::uint8_t>(group);
        for (int k = 0; k < count; ++k) {
            encode::Image image{
                static_cast<std::uint8_t>(group + k), static_cast<std::uint8_t>(3 + k), 0, 0, {}};
            image.Pixels.assign(std::size_t{image.Width} * image.Height,
                                static_cast<std::uint8_t>(16 * group + k));
            made.Images.push_back(image);
        }
        return made;
    }

    void Write(const TempFolder& folder, const std::vector<int>& episodes = {1, 2, 3}) const {
        folder.Write("GAME.PAL", encode::EncodePalette(Colors));
        folder.Write("UIF.DAT", encode::EncodeEntryTable({}, encode::InterfaceEntryCount));
        folder.Write("SND.DAT", encode::EncodeEntryTable(Sounds, encode::SoundEntryCount));
        for (const int episode : episodes) {
            folder.Write("IMG." + std::to_string(episode), encode::EncodeImageArchive(Groups));
            folder.Write("MAP." + std::to_string(episode), encode::EncodeMapArchive(Maps));
        }
    }

    std::array<encode::Color, 256> Colors{};
    std::map<int, encode::Group> Groups;
    std::vector<encode::Map> Maps;
    std::vector<encode::Entry> Sounds;
};

} // namespace morvane
