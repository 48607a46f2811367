#include "DemoEffects.h"

#include "Synth.h"
#include "VocWriter.h"

#include <cstddef>
#include <span>

namespace morvane::demo {

namespace {

using encode::VocFile;

// What an effect's file holds beside one block of samples.
enum class Extra {
    None,
    Repeated,  // the samples are played twice
    Continued, // the second half of the samples in a block that goes on with the first
    Full       // as many samples as an entry can hold
};

struct Effect {
    int Entry;
    int Rate;
    Extra More;
    std::vector<Layer> Layers;
};

const std::vector<Effect>& Effects() {
    using enum Wave;
    using enum Fade;
    static const std::vector<Effect> effects = {
        // Sword clash
        {64,
         11'025,
         Extra::None,
         {{Noise, Steep, 0, 90, 5000, 2500, 900, 1},
          {Square, Steep, 5, 420, 2710, 2690, 260, 1},
          {Sine, Steep, 5, 480, 3470, 3450, 420, 1},
          {Sine, Even, 5, 500, 1830, 1820, 300, 1}}},
        // Door creak
        {67,
         11'025,
         Extra::Continued,
         {{Saw, Hold, 0, 500, 95, 160, 500, 60, 23},
          {Saw, Even, 450, 700, 160, 70, 600, 40, 31},
          {Noise, Steep, 1080, 160, 700, 150, 1000, 1}}},
        // Footsteps
        {72,
         8'000,
         Extra::Repeated,
         {{Noise, Steep, 0, 120, 900, 200, 1000, 2},
          {Sine, Steep, 0, 100, 95, 60, 700, 2},
          {Noise, Steep, 420, 120, 1300, 250, 900, 2},
          {Sine, Steep, 420, 100, 110, 70, 600, 2}}},
        // Coin
        {73,
         16'000,
         Extra::None,
         {{Sine, Steep, 0, 120, 2093, 2093, 700, 1},
          {Sine, Steep, 90, 420, 3136, 3136, 800, 1},
          {Sine, Steep, 90, 300, 5274, 5274, 250, 1}}},
        // Potion
        {80,
         11'025,
         Extra::None,
         {{Sine, Even, 0, 140, 260, 520, 700, 20},
          {Sine, Even, 160, 130, 300, 620, 700, 20},
          {Sine, Even, 310, 120, 340, 700, 700, 20},
          {Sine, Steep, 450, 400, 420, 980, 800, 20, 12}}},
        // Fireball
        {85,
         11'025,
         Extra::Continued,
         {{Noise, Even, 0, 700, 300, 2600, 1000, 150},
          {Noise, Steep, 600, 900, 3500, 200, 1000, 5, 19},
          {Sine, Steep, 600, 600, 130, 40, 700, 5}}},
        // Thunder
        {90,
         22'050,
         Extra::Full,
         {{Noise, Steep, 0, 250, 6000, 900, 700, 1},
          {Noise, Even, 60, 2885, 420, 60, 1000, 20, 4},
          {Noise, Steep, 900, 1500, 300, 80, 900, 80, 7},
          {Sine, Even, 100, 2600, 52, 34, 400, 60, 3}}},
        // Bat
        {99,
         16'000,
         Extra::Repeated,
         {{Sine, Even, 0, 70, 3400, 5200, 800, 5},
          {Sine, Even, 95, 60, 3600, 5600, 800, 5},
          {Sine, Steep, 180, 110, 5800, 3000, 900, 5},
          {Noise, Even, 0, 300, 1500, 1500, 260, 5, 28}}},
        // Roar
        {104,
         8'000,
         Extra::Continued,
         {{Saw, Even, 0, 1300, 140, 62, 800, 180, 27},
          {Saw, Even, 30, 1250, 97, 48, 700, 150, 19},
          {Noise, Even, 0, 1400, 800, 300, 700, 200, 33}}},
        // Water drips
        {112,
         11'025,
         Extra::None,
         {{Sine, Steep, 0, 140, 900, 1500, 900, 3},
          {Sine, Steep, 30, 170, 1700, 2300, 300, 3},
          {Sine, Steep, 450, 140, 760, 1320, 900, 3},
          {Sine, Steep, 480, 170, 1500, 2050, 300, 3}}},
        // Bell
        {118,
         16'000,
         Extra::None,
         {{Sine, Steep, 0, 2600, 220, 220, 500, 3},
          {Sine, Steep, 0, 2200, 440, 440, 700, 2},
          {Sine, Steep, 0, 1700, 523, 523, 500, 2},
          {Sine, Steep, 0, 1200, 659, 659, 400, 2},
          {Sine, Steep, 0, 800, 1174, 1174, 300, 1},
          {Sine, Steep, 0, 400, 1760, 1760, 250, 1}}},
        // Portal
        {125,
         11'025,
         Extra::None,
         {{Saw, Hold, 0, 1600, 60, 900, 350, 300, 9},
          {Sine, Hold, 0, 1600, 120, 1800, 500, 300, 13},
          {Sine, Steep, 1500, 500, 1900, 300, 800, 10}}},
        // Chest
        {131,
         11'025,
         Extra::None,
         {{Noise, Steep, 0, 60, 3000, 800, 900, 1},
          {Square, Even, 80, 260, 70, 130, 400, 40, 37},
          {Noise, Steep, 380, 180, 500, 120, 1000, 1},
          {Sine, Steep, 380, 160, 120, 55, 800, 1}}},
        // Arrow
        {140,
         8'000,
         Extra::None,
         {{Noise, Steep, 0, 220, 3500, 900, 800, 12}, {Square, Steep, 200, 180, 190, 150, 800, 1, 47}}},
        // Gate chain
        {147,
         11'025,
         Extra::None,
         {{Square, Steep, 0, 90, 1310, 1290, 500, 1},
          {Noise, Steep, 0, 60, 4000, 2000, 600, 1},
          {Square, Steep, 150, 90, 1180, 1160, 500, 1},
          {Noise, Steep, 150, 60, 4000, 2000, 600, 1},
          {Square, Steep, 300, 90, 1420, 1400, 500, 1},
          {Noise, Steep, 300, 60, 4000, 2000, 600, 1},
          {Square, Steep, 450, 90, 1240, 1220, 500, 1},
          {Noise, Steep, 450, 60, 4000, 2000, 600, 1},
          {Noise, Steep, 600, 400, 350, 60, 1000, 2}}},
        // Spell
        {159,
         16'000,
         Extra::None,
         {{Sine, Steep, 0, 500, 1047, 1047, 600, 4, 17},
          {Sine, Steep, 120, 500, 1319, 1319, 600, 4, 17},
          {Sine, Steep, 240, 500, 1568, 1568, 600, 4, 17},
          {Sine, Steep, 360, 900, 2093, 2093, 800, 4, 17},
          {Noise, Even, 0, 1200, 7000, 2500, 90, 400, 11}}},
    };
    return effects;
}

int SampleCount(const Effect& effect, int rate) {
    if (effect.More != Extra::Full) return LengthOf(effect.Layers) * rate / 1000;
    return static_cast<int>(65'535 - VocFile::HeaderLength - VocFile::SoundHeaderLength -
                            VocFile::TerminatorLength);
}

std::vector<std::uint8_t> MakeEffect(const Effect& effect) {
    VocFile file(effect.Rate);
    const std::vector<std::uint8_t> samples =
        Render(effect.Layers, file.Rate(), SampleCount(effect, file.Rate()));
    const std::span<const std::uint8_t> firstHalf = std::span(samples).first(samples.size() / 2);
    const std::span<const std::uint8_t> secondHalf = std::span(samples).subspan(firstHalf.size());
    switch (effect.More) {
    case Extra::None:
    case Extra::Full:
        file.AddSound(samples);
        break;
    case Extra::Repeated:
        file.BeginRepeat(2);
        file.AddSound(samples);
        file.EndRepeat();
        break;
    case Extra::Continued:
        file.AddSound(firstHalf);
        file.AddContinued(secondHalf);
        break;
    }
    return file.Bytes();
}

} // namespace

std::vector<DemoEffect> MakeEffects() {
    std::vector<DemoEffect> made;
    for (const Effect& effect : Effects()) made.push_back({effect.Entry, MakeEffect(effect)});
    return made;
}

} // namespace morvane::demo
