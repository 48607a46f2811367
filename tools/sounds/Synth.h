#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace morvane::demo {

enum class Wave { Sine, Square, Saw, Noise };

/// How a layer dies away: not at all until its last 10 ms, evenly, or fast at first.
enum class Fade { Hold, Even, Steep };

/// One sound among those that make up an effect. From and To are its pitch in Hz at start and end; for noise,
/// the frequency above which it is dulled.
struct Layer {
    Wave Shape;
    Fade Decay;
    int StartMs;
    int LengthMs;
    int From;
    int To;
    int Level; ///< 1 to 1000, against the other layers
    int AttackMs = 2;
    int TremoloHz = 0; ///< 0: steady
};

/// The milliseconds from the start to the end of the last layer.
int LengthOf(std::span<const Layer> layers);

/// Mixes the layers to exactly sampleCount 8-bit unsigned samples with 128 as silence, as loud as they go.
/// Integer arithmetic throughout: the same layers give the same samples everywhere.
std::vector<std::uint8_t> Render(std::span<const Layer> layers, int rate, int sampleCount);

} // namespace morvane::demo
