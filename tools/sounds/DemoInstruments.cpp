#include "DemoInstruments.h"

#include "IbkWriter.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace morvane::demo {

namespace {

// How one operator of a family sounds. Attack, decay and release are speeds, 0 slow to 15 fast; Sustain is 0
// for full level to 15 for none; Level is 0 for loud to 63 for silent.
struct Operator {
    int Multiple; // of the note's frequency
    bool Holds;   // keeps its level while the key is down
    bool Vibrato;
    int Level;
    int Attack;
    int Decay;
    int Sustain;
    int Release;
    int Wave; // 0 to 3
};

constexpr std::size_t familySize = 8;

struct Family {
    std::array<const char*, familySize> Names;
    Operator Modulator;
    Operator Carrier;
    int Feedback;  // 0 to 7
    bool Additive; // both operators are heard
};

constexpr std::array<Family, 16> families = {{
    {{"Piano", "Grand", "Parlour", "Upright", "Spinet", "Clavier", "Cembalo", "Virginal"},
     {1, false, false, 22, 15, 4, 4, 5, 0},
     {1, false, false, 4, 15, 3, 5, 6, 0},
     3,
     false},
    {{"Bells", "Chime", "Glass", "MusicBox", "Marimba", "Xylo", "Cymbalon", "Handbell"},
     {7, false, false, 28, 15, 3, 6, 3, 0},
     {2, false, false, 6, 15, 4, 7, 4, 0},
     1,
     false},
    {{"Organ", "PipeOrg", "Chapel", "ReedOrg", "Positive", "Regal", "Bellows", "Squeeze"},
     {2, true, false, 18, 13, 0, 0, 8, 0},
     {1, true, false, 8, 13, 0, 0, 8, 0},
     4,
     true},
    {{"Lute", "Guitar", "Cittern", "Bandora", "Theorbo", "Mandola", "Ukelin", "Gittern"},
     {3, false, false, 26, 15, 6, 5, 5, 1},
     {1, false, false, 5, 15, 5, 6, 6, 0},
     5,
     false},
    {{"Bass", "BowBass", "FretBass", "GutBass", "SlapBass", "DarkBass", "Drone", "Tromba"},
     {0, false, false, 20, 14, 5, 3, 6, 0},
     {0, false, false, 2, 14, 4, 4, 7, 0},
     4,
     false},
    {{"Violin", "Viola", "Cello", "Rebec", "Fiddle", "Pluck", "Harp", "Kettle"},
     {2, true, true, 24, 8, 2, 2, 6, 0},
     {1, true, true, 6, 7, 2, 1, 6, 1},
     3,
     false},
    {{"Strings", "SlowStr", "Consort", "Viols", "Choir", "Monks", "Voices", "Wail"},
     {1, true, true, 30, 5, 1, 2, 4, 0},
     {1, true, true, 8, 5, 1, 1, 4, 0},
     2,
     false},
    {{"Trumpet", "Trombone", "Tuba", "Sackbut", "Horn", "Brass", "Cornett", "Clarion"},
     {1, true, false, 22, 9, 3, 3, 7, 0},
     {1, true, false, 4, 10, 3, 2, 8, 0},
     6,
     false},
    {{"Shawm", "Crumhorn", "Dulcian", "Oboe", "Bassoon", "Clarinet", "Bombard", "Rackett"},
     {3, true, false, 25, 10, 4, 2, 8, 1},
     {1, true, true, 6, 10, 3, 2, 8, 0},
     5,
     false},
    {{"Piccolo", "Flute", "Recorder", "Panpipe", "Bottle", "Whistle", "Ocarina", "Fife"},
     {2, true, true, 38, 9, 5, 4, 7, 0},
     {1, true, true, 6, 9, 3, 2, 7, 0},
     1,
     false},
    {{"Square", "Saw", "Buzz", "Chiff", "Rasp", "Hollow", "Fifths", "LeadBass"},
     {1, true, false, 16, 14, 2, 1, 6, 2},
     {1, true, false, 8, 14, 2, 1, 6, 3},
     7,
     false},
    {{"Mist", "Warm", "Deep", "Heaven", "Bowed", "Metal", "Halo", "Sweep"},
     {3, true, true, 32, 3, 1, 2, 3, 0},
     {1, true, false, 10, 3, 1, 1, 3, 0},
     2,
     true},
    {{"Rain", "Cavern", "Crystal", "Torch", "Dawn", "Goblin", "Echo", "Stars"},
     {9, false, true, 30, 10, 3, 5, 2, 2},
     {2, false, true, 8, 8, 2, 6, 2, 0},
     4,
     true},
    {{"Sitar", "Banjo", "Koto", "Zither", "Thumb", "Bagpipe", "Gurdy", "Psaltery"},
     {5, false, false, 24, 15, 7, 6, 5, 1},
     {1, false, false, 5, 15, 6, 7, 5, 1},
     6,
     false},
    {{"Tinkle", "Cowbell", "Steel", "Block", "Taiko", "TomTom", "Tabor", "Cymbal"},
     {6, false, false, 14, 15, 8, 9, 8, 0},
     {1, false, false, 2, 15, 7, 10, 8, 0},
     7,
     false},
    {{"Scrape", "Breath", "Shore", "Bird", "Knock", "Wings", "Crowd", "Blast"},
     {15, true, true, 6, 6, 3, 8, 4, 3},
     {4, true, true, 10, 6, 3, 7, 4, 0},
     7,
     false},
}};

// Registers of both operators, moved by `member` so that no two of a family sound the same.
std::array<std::uint8_t, 16> Registers(const Family& family, int member) {
    std::array<std::uint8_t, 16> bytes{};
    const std::array<const Operator*, 2> operators = {&family.Modulator, &family.Carrier};
    for (std::size_t i = 0; i < operators.size(); ++i) {
        const Operator& op = *operators[i];
        const bool modulator = i == 0;
        const int multiple = modulator ? (op.Multiple + member / 2) % 16 : op.Multiple;
        const int level = std::clamp(op.Level + (modulator ? 3 * (member % 4) : member % 2), 0, 63);
        const int attack = std::clamp(op.Attack - (modulator ? 0 : member / 4), 1, 15);
        const int decay = std::clamp(op.Decay + member % 3, 0, 15);
        const int release = std::clamp(op.Release + member % 2, 1, 15);
        bytes[i] = static_cast<std::uint8_t>((op.Vibrato ? 0x40 : 0) | (op.Holds ? 0x20 : 0) | multiple);
        bytes[2 + i] = static_cast<std::uint8_t>(level);
        bytes[4 + i] = static_cast<std::uint8_t>((attack << 4) | decay);
        bytes[6 + i] = static_cast<std::uint8_t>((op.Sustain << 4) | release);
        bytes[8 + i] = static_cast<std::uint8_t>(op.Wave);
    }
    bytes[10] = static_cast<std::uint8_t>((family.Feedback << 1) | (family.Additive ? 1 : 0));
    return bytes;
}

using Bank = std::array<encode::Instrument, 128>;

Bank HallInstruments() {
    Bank bank;
    for (std::size_t i = 0; i < bank.size(); ++i) {
        const Family& family = families[i / familySize];
        const std::size_t member = i % familySize;
        bank[i] = {family.Names[member], Registers(family, static_cast<int>(member))};
    }
    return bank;
}

} // namespace

std::vector<std::uint8_t> MakeHallBank() { return encode::InstrumentBank(HallInstruments()); }

std::vector<std::uint8_t> MakeCaveBank() {
    Bank bank = HallInstruments();
    for (encode::Instrument& instrument : bank) {
        auto& registers = instrument.Registers;
        registers[2] = static_cast<std::uint8_t>(std::min(registers[2] + 8, 63));
        for (const std::size_t release : {std::size_t{6}, std::size_t{7}})
            registers[release] = static_cast<std::uint8_t>((registers[release] & 0xF0) |
                                                           std::max((registers[release] & 0x0F) - 2, 1));
        registers[12] = static_cast<std::uint8_t>(-12); // an octave down
    }
    return encode::InstrumentBank(bank);
}

} // namespace morvane::demo
