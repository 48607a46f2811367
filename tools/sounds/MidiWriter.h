#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace morvane::encode {

/// One track of a Standard MIDI File. Events may be added in any order; positions are in ticks from the
/// start. Channels count from 0, so that percussion is 9.
class MidiTrack {
  public:
    void SetName(std::string_view name);
    void SetTempo(std::uint32_t tick, int quartersPerMinute);
    /// For 6/8: numerator 6, denominatorPower 3.
    void SetTimeSignature(int numerator, int denominatorPower);
    void SetProgram(int channel, int program);
    /// A note-on and its note-off; length is at least 1 tick, velocity at least 1.
    void AddNote(std::uint32_t tick, std::uint32_t length, int channel, int key, int velocity);
    /// The track ends here, or with its last event if that is later.
    void SetEnd(std::uint32_t tick);

    /// The complete MTrk chunk.
    [[nodiscard]] std::vector<std::uint8_t> Chunk() const;

  private:
    /// What happens at one tick happens in this order: a key is released before it is struck again.
    enum class Order { Meta, Program, NoteOff, NoteOn };

    struct Event {
        std::uint32_t Tick;
        Order Rank;
        std::vector<std::uint8_t> Bytes;
    };

    void AddMeta(std::uint32_t tick, std::uint8_t type, std::vector<std::uint8_t> data);

    std::vector<Event> events;
    std::uint32_t end = 0;
};

/// A Standard MIDI File: format 0 when it has one track, otherwise format 1, whose first track holds the
/// tempo.
std::vector<std::uint8_t> MidiFile(int ticksPerQuarter, const std::vector<MidiTrack>& tracks);

} // namespace morvane::encode
