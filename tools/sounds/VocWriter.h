#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace morvane::encode {

/// Builds a Creative Voice File, version 1.10, of 8-bit unsigned mono samples: a 26-byte header, blocks, a
/// terminator.
class VocFile {
  public:
    /// What the file needs beside the data of its blocks.
    static constexpr std::size_t HeaderLength = 26;
    static constexpr std::size_t BlockHeaderLength = 4;
    static constexpr std::size_t SoundHeaderLength = BlockHeaderLength + 2; ///< with time constant and codec
    static constexpr std::size_t TerminatorLength = 1;

    /// The rate asked for, 4,000 to 44,100 samples a second, is rounded to one that a time constant can say.
    explicit VocFile(int rate);

    /// The rate that players will use.
    [[nodiscard]] int Rate() const;

    /// A block of samples with its own rate and codec.
    void AddSound(std::span<const std::uint8_t> samples);
    /// A block that goes on with the rate and codec of the one before.
    void AddContinued(std::span<const std::uint8_t> samples);
    /// What is added up to EndRepeat is played this many times, 1 to 65,535.
    void BeginRepeat(int times);
    void EndRepeat();

    /// The whole file with its terminator.
    [[nodiscard]] std::vector<std::uint8_t> Bytes() const;

  private:
    void AddBlock(std::uint8_t type, std::size_t length);

    std::uint8_t timeConstant;
    std::vector<std::uint8_t> bytes;
};

} // namespace morvane::encode
