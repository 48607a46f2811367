#include "MidiWriter.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <utility>

namespace morvane::encode {

namespace {

// Numbers outside the notes of a file are big-endian.
void AppendBig(std::vector<std::uint8_t>& bytes, std::uint32_t value, int width) {
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

void AppendText(std::vector<std::uint8_t>& bytes, std::string_view text) {
    for (const char letter : text) bytes.push_back(static_cast<std::uint8_t>(letter));
}

// Seven bits a byte, most significant first; all bytes but the last have the top bit set.
void AppendVariable(std::vector<std::uint8_t>& bytes, std::uint32_t value) {
    if (value > 0x0FFFFFFF) throw std::out_of_range("a variable-length quantity has at most 28 bits");
    int shift = 21;
    while (shift > 0 && (value >> shift) == 0) shift -= 7;
    for (; shift > 0; shift -= 7)
        bytes.push_back(static_cast<std::uint8_t>(0x80 | ((value >> shift) & 0x7F)));
    bytes.push_back(static_cast<std::uint8_t>(value & 0x7F));
}

std::uint8_t InRange(int value, int low, int high) {
    if (value < low || value > high) throw std::out_of_range("a MIDI value is out of range");
    return static_cast<std::uint8_t>(value);
}

} // namespace

void MidiTrack::SetName(std::string_view name) { AddMeta(0, 0x03, {name.begin(), name.end()}); }

void MidiTrack::SetTempo(std::uint32_t tick, int quartersPerMinute) {
    const int tempo = InRange(quartersPerMinute, 4, 255);
    std::vector<std::uint8_t> microsecondsPerQuarter;
    AppendBig(microsecondsPerQuarter, static_cast<std::uint32_t>(60'000'000 / tempo), 3);
    AddMeta(tick, 0x51, microsecondsPerQuarter);
}

void MidiTrack::SetTimeSignature(int numerator, int denominatorPower) {
    constexpr std::uint8_t clocksPerClick = 24;
    constexpr std::uint8_t thirtySecondsPerQuarter = 8;
    AddMeta(0, 0x58,
            {InRange(numerator, 1, 255), InRange(denominatorPower, 0, 6), clocksPerClick,
             thirtySecondsPerQuarter});
}

void MidiTrack::SetProgram(int channel, int program) {
    events.push_back({0,
                      Order::Program,
                      {static_cast<std::uint8_t>(0xC0 | InRange(channel, 0, 15)), InRange(program, 0, 127)}});
}

void MidiTrack::AddNote(std::uint32_t tick, std::uint32_t length, int channel, int key, int velocity) {
    if (length == 0) throw std::out_of_range("a note lasts at least one tick");
    const std::uint8_t channelBits = InRange(channel, 0, 15);
    const std::uint8_t keyByte = InRange(key, 0, 127);
    events.push_back({tick,
                      Order::NoteOn,
                      {static_cast<std::uint8_t>(0x90 | channelBits), keyByte, InRange(velocity, 1, 127)}});
    events.push_back(
        {tick + length, Order::NoteOff, {static_cast<std::uint8_t>(0x80 | channelBits), keyByte, 64}});
}

void MidiTrack::SetEnd(std::uint32_t tick) { end = tick; }

void MidiTrack::AddMeta(std::uint32_t tick, std::uint8_t type, std::vector<std::uint8_t> data) {
    std::vector<std::uint8_t> bytes = {0xFF, type};
    AppendVariable(bytes, static_cast<std::uint32_t>(data.size()));
    bytes.insert(bytes.end(), data.begin(), data.end());
    events.push_back({tick, Order::Meta, std::move(bytes)});
}

std::vector<std::uint8_t> MidiTrack::Chunk() const {
    std::vector<const Event*> sorted;
    sorted.reserve(events.size());
    for (const Event& event : events) sorted.push_back(&event);
    std::stable_sort(sorted.begin(), sorted.end(), [](const Event* a, const Event* b) {
        return a->Tick != b->Tick ? a->Tick < b->Tick : a->Rank < b->Rank;
    });

    std::vector<std::uint8_t> body;
    std::uint32_t now = 0;
    for (const Event* event : sorted) {
        AppendVariable(body, event->Tick - now);
        body.insert(body.end(), event->Bytes.begin(), event->Bytes.end());
        now = event->Tick;
    }
    AppendVariable(body, std::max(end, now) - now);
    body.insert(body.end(), {0xFF, 0x2F, 0x00});

    std::vector<std::uint8_t> chunk;
    AppendText(chunk, "MTrk");
    AppendBig(chunk, static_cast<std::uint32_t>(body.size()), 4);
    chunk.insert(chunk.end(), body.begin(), body.end());
    return chunk;
}

std::vector<std::uint8_t> MidiFile(int ticksPerQuarter, const std::vector<MidiTrack>& tracks) {
    if (ticksPerQuarter < 1 || ticksPerQuarter > 0x7FFF)
        throw std::out_of_range("a quarter has 1 to 32767 ticks");
    std::vector<std::uint8_t> bytes;
    AppendText(bytes, "MThd");
    AppendBig(bytes, 6, 4);
    AppendBig(bytes, tracks.size() == 1 ? 0 : 1, 2);
    AppendBig(bytes, static_cast<std::uint32_t>(tracks.size()), 2);
    AppendBig(bytes, static_cast<std::uint32_t>(ticksPerQuarter), 2);
    for (const MidiTrack& track : tracks) {
        const std::vector<std::uint8_t> chunk = track.Chunk();
        bytes.insert(bytes.end(), chunk.begin(), chunk.end());
    }
    return bytes;
}

} // namespace morvane::encode
