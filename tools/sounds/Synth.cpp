#include "Synth.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>

namespace morvane::demo {

namespace {

constexpr std::int64_t one = 65'536; // of envelopes and filter coefficients

// A quarter of a sine wave in 64 steps, full level 32,767, by the recurrence
// sin(x + d) = 2 cos(d) sin(x) - sin(x - d) in 30-bit fractions.
constexpr std::array<std::int32_t, 65> QuarterWave() {
    constexpr std::int64_t cosine = 1'073'418'433; // of 2 pi / 256
    constexpr std::int64_t sine = 26'350'943;
    std::array<std::int32_t, 65> table{};
    std::int64_t before = 0;
    std::int64_t now = sine;
    for (std::size_t i = 1; i < table.size(); ++i) {
        table[i] = static_cast<std::int32_t>(std::min<std::int64_t>((now * 32'767) >> 30, 32'767));
        const std::int64_t next = ((2 * cosine * now) >> 30) - before;
        before = now;
        now = next;
    }
    return table;
}

// A full turn of the phase is 2^32.
std::int64_t Sine(std::uint32_t phase) {
    static constexpr std::array<std::int32_t, 65> quarter = QuarterWave();
    const std::uint32_t step = phase >> 24;
    const std::uint32_t inHalf = step & 127;
    const std::int64_t value = quarter[inHalf <= 64 ? inHalf : 128 - inHalf];
    return step < 128 ? value : -value;
}

class NoiseSource {
  public:
    // From -32,768 to 32,767.
    std::int64_t Next() {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return static_cast<std::int64_t>(state >> 16) - 32'768;
    }

  private:
    std::uint32_t state = 0x5EED1234;
};

// Level of sample i of a layer, 0 to `one`.
std::int64_t Envelope(const Layer& layer, std::int64_t i, std::int64_t count, int rate) {
    const std::int64_t remaining = (count - i) * one / count;
    std::int64_t level = remaining;
    if (layer.Decay == Fade::Steep) level = remaining * remaining / one;
    if (layer.Decay == Fade::Hold) level = std::min(one, (count - i) * one / std::max(1, rate / 100));
    const std::int64_t attack = std::int64_t{layer.AttackMs} * rate / 1000;
    return i < attack ? level * i / attack : level;
}

void AddLayer(std::vector<std::int64_t>& mix, const Layer& layer, int rate, NoiseSource& noise) {
    const std::int64_t first = std::int64_t{layer.StartMs} * rate / 1000;
    const std::int64_t count = std::int64_t{layer.LengthMs} * rate / 1000;
    const std::int64_t from = layer.From;
    const std::int64_t to = layer.To;
    const std::int64_t milliRate = std::int64_t{1000} * rate;
    std::uint32_t phase = 0;
    std::uint32_t tremolo = 0;
    std::int64_t dulled = 0;
    for (std::int64_t i = 0; i < count && first + i < static_cast<std::int64_t>(mix.size()); ++i) {
        const std::int64_t milliHertz = 1000 * from + 1000 * (to - from) * i / count;
        std::int64_t value = 0;
        switch (layer.Shape) {
        case Wave::Sine:
            value = Sine(phase);
            break;
        case Wave::Square:
            value = phase < 0x80000000U ? 20'000 : -20'000;
            break;
        case Wave::Saw:
            value = static_cast<std::int64_t>(phase >> 16) - 32'768;
            break;
        case Wave::Noise: {
            // A one-pole filter; 2 pi in units of `one` is 411,775.
            const std::int64_t coefficient = std::min(one, milliHertz * 411'775 / milliRate);
            dulled += (noise.Next() - dulled) * coefficient / one;
            value = dulled;
            break;
        }
        }
        value = value * Envelope(layer, i, count, rate) / one * layer.Level / 1000;
        if (layer.TremoloHz != 0) value = value * (Sine(tremolo) + 40'000) / 72'768;
        mix[static_cast<std::size_t>(first + i)] += value;
        phase += static_cast<std::uint32_t>((milliHertz << 32) / milliRate);
        tremolo += static_cast<std::uint32_t>((std::int64_t{layer.TremoloHz} << 32) / rate);
    }
}

} // namespace

int LengthOf(std::span<const Layer> layers) {
    int length = 0;
    for (const Layer& layer : layers) length = std::max(length, layer.StartMs + layer.LengthMs);
    return length;
}

std::vector<std::uint8_t> Render(std::span<const Layer> layers, int rate, int sampleCount) {
    std::vector<std::int64_t> mix(static_cast<std::size_t>(sampleCount));
    NoiseSource noise;
    for (const Layer& layer : layers) AddLayer(mix, layer, rate, noise);

    constexpr std::int64_t loudest = 120;
    std::int64_t peak = 1;
    for (const std::int64_t value : mix) peak = std::max(peak, std::abs(value));
    std::vector<std::uint8_t> samples;
    samples.reserve(mix.size());
    for (const std::int64_t value : mix)
        samples.push_back(static_cast<std::uint8_t>(128 + value * loudest / peak));
    return samples;
}

} // namespace morvane::demo
