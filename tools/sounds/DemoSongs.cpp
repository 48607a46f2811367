#include "DemoSongs.h"

#include "MidiWriter.h"
#include "Score.h"

#include <cstddef>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace morvane::demo {

namespace {

using encode::MidiTrack;

constexpr int ticksPerQuarter = 96;

// Channels, as numbered in the file.
enum Channel { LeadChannel, SecondChannel, ChordChannel, BassChannel, DrumChannel = 9 };

struct SongMetre {
    int BeatsPerBar;
    int BeatPower;    // 2 for beats of a quarter, 3 for beats of an eighth
    int UnitsPerBeat; // of the note text
};

struct SongPrograms {
    int Lead;
    int Second;
    int Chords;
    int Bass;
};

struct Song {
    int Entry;
    const char* Title;
    SongMetre Metre;
    std::vector<int> Tempos; // quarters per minute, one for each time the tune is played
    SongPrograms Programs;
    const char* Lead;
    const char* Second = ""; // another voice of the same length, if there is one
    const char* Chords;
    const char* Drums; // a bar of percussion, one character a unit
    bool SingleTrack = false;
};

const std::vector<Song>& Songs() {
    static const std::vector<Song> songs = {
        {.Entry = 7,
         .Title = "Greensleeves",
         .Metre = {6, 3, 2},
         .Tempos = {100},
         .Programs = {24, 73, 46, 32},
         .Lead = "r:10 a4:2 | c5:4 d5:2 e5:3 f5:1 e5:2 | d5:4 b4:2 g4:3 a4:1 b4:2 | "
                 "c5:4 a4:2 a4:3 g#4:1 a4:2 | b4:4 g#4:2 e4:4 a4:2 | c5:4 d5:2 e5:3 f5:1 e5:2 | "
                 "d5:4 b4:2 g4:3 a4:1 b4:2 | c5:3 b4:1 a4:2 g#4:3 f#4:1 g#4:2 | a4:12 | "
                 "g5:6 g5:3 f#5:1 e5:2 | d5:4 b4:2 g4:3 a4:1 b4:2 | c5:4 a4:2 a4:3 g#4:1 a4:2 | "
                 "b4:4 g#4:2 e4:6 | g5:6 g5:3 f#5:1 e5:2 | d5:4 b4:2 g4:3 a4:1 b4:2 | "
                 "c5:3 b4:1 a4:2 g#4:3 f#4:1 g#4:2 | a4:12 |",
         .Chords = "r:12 | Am | G | Am | E | Am | G | E | Am | C | G | Am | E | C | G | E | Am |",
         .Drums = "k...t.t...t."},
        {.Entry = 11,
         .Title = "Scarborough Fair",
         .Metre = {3, 2, 2},
         .Tempos = {108, 108},
         .Programs = {73, 46, 46, 32},
         .Lead = "d4:4 d4:2 | a4:4 a4:2 | e4:3 f4:1 e4:2 | d4:6 | r:2 a4 c5 | d5:4 c5:2 | "
                 "a4 b4 g4 | a4:6 | r:4 d5:2 | d5:4 d5:2 | c5:4 a4:2 | a4 g4 f4 | e4 c4:4 | "
                 "d4:4 a4:2 | g4:4 f4:2 | e4 d4 c4 | d4:6 | r:6 |",
         .Second = "r:6 | r | r | r:2 f4 a4 | d4:6 | f4 | c4 | e4:2 f4 g4 | f4:6 | f4 | e4 | f4 | "
                   "g4 | f4 | d4 | c4 | a3:2 d4 f4 | d4:6 |",
         .Chords = "Dm:6 | Dm | C | Dm | F | Dm | G | Am | Dm | Dm | C | F | C | Dm | G | C | Dm | "
                   "Dm |",
         .Drums = "t...t."},
        {.Entry = 12,
         .Title = "Ode to Joy",
         .Metre = {4, 2, 2},
         .Tempos = {120},
         .Programs = {60, 56, 48, 43},
         .Lead = "e4:2 e4 f4 g4 | g4 f4 e4 d4 | c4 c4 d4 e4 | e4:3 d4:1 d4:4 | e4:2 e4 f4 g4 | "
                 "g4 f4 e4 d4 | c4 c4 d4 e4 | d4:3 c4:1 c4:4 | d4:2 d4 e4 c4 | "
                 "d4 e4:1 f4 e4:2 c4 | d4 e4:1 f4 e4:2 d4 | c4 d4 g3:4 | e4:2 e4 f4 g4 | "
                 "g4 f4 e4 d4 | c4 c4 d4 e4 | d4:3 c4:1 c4:4 |",
         .Second = "r:8 | r | r | r | c5:8 | b4 | g4 | f4:4 e4 | g4:8 | g4 | g4 | e4:4 d4 | c5:8 | "
                   "b4 | g4 | f4:4 e4 |",
         .Chords = "C:8 | G | C | G:8 | C | G | C | G:4 C | G:8 | G | G | D:4 G | C:8 | G | C | "
                   "G:4 C |",
         .Drums = "k.h.s.h."},
        {.Entry = 18,
         .Title = "Frere Jacques",
         .Metre = {4, 2, 2},
         .Tempos = {132, 144},
         .Programs = {11, 12, 0, 33},
         .Lead = "f4:2 g4 a4 f4 | f4 g4 a4 f4 | a4 bb4 c5:4 | a4:2 bb4 c5:4 | "
                 "c5:1 d5 c5 bb4 a4:2 f4 | c5:1 d5 c5 bb4 a4:2 f4 | f4 c4 f4:4 | f4:2 c4 f4:4 | "
                 "r:8 | r |",
         .Second = "r:8 | r | f4:2 g4 a4 f4 | f4 g4 a4 f4 | a4 bb4 c5:4 | a4:2 bb4 c5:4 | "
                   "c5:1 d5 c5 bb4 a4:2 f4 | c5:1 d5 c5 bb4 a4:2 f4 | f4 c4 f4:4 | f4:2 c4 f4:4 |",
         .Chords = "F:8 | F | F | F | F | F | F | F | F | F |",
         .Drums = "k.w.s.w."},
        {.Entry = 23,
         .Title = "Drunken Sailor",
         .Metre = {4, 2, 2},
         .Tempos = {160, 184},
         .Programs = {21, 22, 25, 32},
         .Lead = "a4:2 a4:1 a4 a4:2 a4:1 a4 | a4:2 d4 f4 a4 | g4 g4:1 g4 g4:2 g4:1 g4 | "
                 "g4:2 c4 e4 g4 | a4 a4:1 a4 a4:2 a4:1 a4 | a4:2 b4 c5 d5 | c5 a4 g4 e4 | "
                 "d4:4 d4 | a4:4 a4:3 a4:1 | a4:2 d4 f4 a4 | g4:4 g4:3 g4:1 | g4:2 c4 e4 g4 | "
                 "a4:4 a4:3 a4:1 | a4:2 b4 c5 d5 | c5 a4 g4 e4 | d4:4 d4 |",
         .Chords = "Dm:8 | Dm | C | C | Dm | Dm | Am:4 C | Dm:8 | Dm | Dm | C | C | Dm | Dm | "
                   "Am:4 C | Dm:8 |",
         .Drums = "k.t.s.tt"},
        {.Entry = 24,
         .Title = "Korobeiniki",
         .Metre = {4, 2, 2},
         .Tempos = {132, 152},
         .Programs = {105, 21, 15, 32},
         .Lead = "e5:2 b4:1 c5 d5:2 c5:1 b4 | a4:2 a4:1 c5 e5:2 d5:1 c5 | b4:3 c5:1 d5:2 e5 | "
                 "c5 a4 a4:4 | r:1 d5:2 f5:1 a5:2 g5:1 f5 | e5:3 c5:1 e5:2 d5:1 c5 | "
                 "b4:2 b4:1 c5 d5:2 e5 | c5 a4 a4:4 |",
         .Chords = "E:8 | Am | E | Am | Dm | C | E | Am |",
         .Drums = "k.hhs.h.",
         .SingleTrack = true},
        {.Entry = 31,
         .Title = "Hall of the King",
         .Metre = {4, 2, 2},
         .Tempos = {112, 148},
         .Programs = {70, 71, 45, 43},
         .Lead = "b3:1 c#4 d4 e4 f#4 d4 f#4:2 | f4:1 c#4 f4:2 e4:1 c4 e4:2 | "
                 "b3:1 c#4 d4 e4 f#4 d4 f#4 b4 | a4 f#4 d4 f#4 a4:4 | "
                 "b3:1 c#4 d4 e4 f#4 d4 f#4:2 | f4:1 c#4 f4:2 e4:1 c4 e4:2 | "
                 "b3:1 c#4 d4 e4 f#4 d4 f#4 b4 | a4 f#4 d4 f#4 a4:4 | "
                 "f#4:1 g#4 a#4 b4 c#5 a#4 c#5:2 | d5:1 a#4 d5:2 c#5:1 a#4 c#5:2 | "
                 "f#4:1 g#4 a#4 b4 c#5 a#4 c#5:2 | d5:1 a#4 d5:2 c#5:4 | "
                 "b3:1 c#4 d4 e4 f#4 d4 f#4:2 | f4:1 c#4 f4:2 e4:1 c4 e4:2 | "
                 "b3:1 c#4 d4 e4 f#4 d4 f#4 b4 | a4 f#4 a4 c#5 b4:4 |",
         .Chords = "Bm:8 | C#:4 C | Bm:8 | D | Bm:8 | C#:4 C | Bm:8 | D | F# | F# | F# | F# | "
                   "Bm:8 | C#:4 C | Bm:8 | Bm |",
         .Drums = "k...k.h."},
        {.Entry = 37,
         .Title = "Day of Wrath",
         .Metre = {4, 2, 2},
         .Tempos = {76, 76},
         .Programs = {19, 52, 48, 43},
         .Lead = "f4:2 e4 f4 d4 | e4 c4 d4:4 | f4:2 f4:1 g4 e4:2 d4 | c4 e4:1 f4 e4:2 d4 | "
                 "f5 e5 f5 d5 | e5 c5 d5:4 | a4:2 a4:1 c5 bb4:2 a4 | g4 f4:1 e4 d4:4 |",
         .Second = "d4:2 c4 d4 a3 | c4 g3 a3:4 | d4:2 d4 c4 a3 | g3 c4 c4 a3 | d4 c4 d4 a3 | "
                   "c4 g3 a3:4 | f4:4 d4 | d4 a3 |",
         .Chords = "Dm:8 | C:4 Dm | Dm:8 | C:4 Dm | Dm:8 | C:4 Dm | F:4 Bb | Gm:4 Dm |",
         .Drums = "b.....b."},
        {.Entry = 42,
         .Title = "Sakura",
         .Metre = {4, 2, 2},
         .Tempos = {92},
         .Programs = {107, 77, 46, 32},
         .Lead = "a4:2 a4 b4:4 | a4:2 a4 b4:4 | a4:2 b4 c5 b4 | a4 b4:1 a4 f4:4 | e4:2 c4 e4 f4 | "
                 "e4 e4:1 c4 b3:4 | a4:2 b4 c5 b4 | a4 b4:1 a4 f4:4 | e4:2 c4 e4 f4 | "
                 "e4 e4:1 c4 b3:4 | a4:2 a4 b4:4 | a4:2 a4 b4:4 | e4:2 f4 b4:1 a4 f4:2 | e4:8 |",
         .Chords = "Am:8 | Am | Am | F | Am | E | Am | F | Am | E | Am | Am | F | Am |",
         .Drums = "w.....g."},
        {.Entry = 48,
         .Title = "God Rest You Merry",
         .Metre = {4, 2, 2},
         .Tempos = {140},
         .Programs = {68, 71, 6, 43},
         .Lead = "r:6 e4:2 | e4 b4 b4 a4 | g4 f#4 e4 d4 | e4 f#4 g4 a4 | b4:6 e4:2 | "
                 "e4 b4 b4 a4 | g4 f#4 e4 d4 | e4 f#4 g4 a4 | b4:6 b4:2 | c5 a4 b4 c5 | "
                 "d5 e5 b4 a4 | g4 e4 f#4 g4 | a4:4 g4:2 a4 | b4:4 c5:2 b4 | b4 a4 g4 f#4 | "
                 "e4:4 g4:1 f#4 e4:2 | a4:4 g4:2 a4 | b4 c5 d5 e5 | b4 a4 g4 f#4 | e4:8 |",
         .Chords = "r:8 | Em | C | Am | B | Em | C | Am | B | Am | G | Em | D | G | B | Em | Am | "
                   "G | B | Em |",
         .Drums = "k.h.s.h."},
        {.Entry = 55,
         .Title = "The Lower Stairs",
         .Metre = {4, 2, 4},
         .Tempos = {96, 104},
         .Programs = {80, 81, 89, 38},
         .Lead = "a3:2 e4 a4 e4 c5:3 b4:1 a4:4 | g3:2 d4 g4 d4 b4:3 a4:1 g4:4 | "
                 "f3:2 c4 f4 a4 c5:3 d5:1 c5:4 | e3:2 b3 e4 g#4 b4:8 | "
                 "a3:2 e4 a4 c5 e5:3 d5:1 c5:4 | d5:2 c5 b4 a4 g4:3 a4:1 b4:4 | "
                 "c5:2 a4 f4 a4 b4:3 g#4:1 e4:4 | a4:12 r:4 |",
         .Chords = "Am:16 | G | F | E | Am | G | F:8 E | Am:16 |",
         .Drums = "k...h...s.k.h.h.",
         .SingleTrack = true},
    };
    return songs;
}

int DrumKey(char name) {
    switch (name) {
    case 'k':
        return 36; // bass drum
    case 's':
        return 38; // snare
    case 'h':
        return 42; // closed hi-hat
    case 'b':
        return 41; // low tom
    case 't':
        return 54; // tambourine
    case 'w':
        return 76; // wood block
    case 'g':
        return 81; // open triangle
    default:
        throw std::logic_error(std::string("no such drum: ") + name);
    }
}

// Writes each voice into a track of its own, or all of them into one.
class SongWriter {
  public:
    explicit SongWriter(const Song& song)
        : tune(song), tracks(1), unitsPerBar(song.Metre.BeatsPerBar * song.Metre.UnitsPerBeat),
          unitTicks((ticksPerQuarter * 4 >> song.Metre.BeatPower) / song.Metre.UnitsPerBeat),
          chords(ReadChords(song.Chords, unitsPerBar)) {}

    std::vector<std::uint8_t> Write() {
        const int times = static_cast<int>(tune.Tempos.size());
        tracks[0].SetName(tune.Title);
        tracks[0].SetTimeSignature(tune.Metre.BeatsPerBar, tune.Metre.BeatPower);
        for (int i = 0; i < times; ++i)
            tracks[0].SetTempo(Ticks(i * chords.Length), tune.Tempos[static_cast<std::size_t>(i)]);

        AddTune("Lead", LeadChannel, tune.Programs.Lead, 100, tune.Lead);
        AddTune("Second", SecondChannel, tune.Programs.Second, 80, tune.Second);
        AddChords();
        AddBass();
        AddDrums();
        for (MidiTrack& track : tracks) track.SetEnd(Ticks(times * chords.Length));
        return encode::MidiFile(ticksPerQuarter, tracks);
    }

  private:
    [[nodiscard]] std::uint32_t Ticks(int units) const {
        return static_cast<std::uint32_t>(units * unitTicks);
    }

    MidiTrack& Track(std::string_view name) {
        if (tune.SingleTrack) return tracks[0];
        tracks.emplace_back().SetName(name);
        return tracks.back();
    }

    // Plays a part of the tune each time the tune comes round. Notes stop a little early, so that the same
    // key can be heard twice in a row.
    void Play(MidiTrack& track, Channel channel, int velocity, std::span<const ScoreNote> notes) const {
        for (int time = 0; time < static_cast<int>(tune.Tempos.size()); ++time)
            for (const ScoreNote& note : notes)
                track.AddNote(Ticks(time * chords.Length + note.Start), Ticks(note.Length) * 7 / 8, channel,
                              note.Key, velocity);
    }

    void AddTune(std::string_view name, Channel channel, int program, int velocity, std::string_view text) {
        if (text.empty()) return;
        const Score<ScoreNote> score = ReadNotes(text, unitsPerBar);
        if (score.Length != chords.Length)
            throw std::logic_error(std::string("voices of different length in ") + tune.Title);
        MidiTrack& track = Track(name);
        track.SetProgram(channel, program);
        Play(track, channel, velocity, score.Items);
    }

    void AddChords() {
        std::vector<ScoreNote> notes;
        for (const ScoreChord& chord : chords.Items)
            for (const int interval : {0, chord.Minor ? 3 : 4, 7})
                notes.push_back({chord.Start, chord.Length, 48 + chord.Root + interval});
        MidiTrack& track = Track("Chords");
        track.SetProgram(ChordChannel, tune.Programs.Chords);
        Play(track, ChordChannel, 56, notes);
    }

    // Root, then fifth.
    void AddBass() {
        std::vector<ScoreNote> notes;
        for (const ScoreChord& chord : chords.Items) {
            const int root = (chord.Root < 4 ? 36 : 24) + chord.Root; // from low E up
            const int half = chord.Length / 2;
            notes.push_back({chord.Start, half, root});
            notes.push_back({chord.Start + half, chord.Length - half, root + 7});
        }
        MidiTrack& track = Track("Bass");
        track.SetProgram(BassChannel, tune.Programs.Bass);
        Play(track, BassChannel, 88, notes);
    }

    void AddDrums() {
        const std::string_view bar = tune.Drums;
        if (static_cast<int>(bar.size()) != unitsPerBar)
            throw std::logic_error(std::string("a drum bar of the wrong length in ") + tune.Title);
        std::vector<ScoreNote> notes;
        for (int unit = 0; unit < chords.Length; ++unit) {
            const char drum = bar[static_cast<std::size_t>(unit % unitsPerBar)];
            if (drum != '.') notes.push_back({unit, 1, DrumKey(drum)});
        }
        Play(Track("Drums"), DrumChannel, 72, notes);
    }

    const Song& tune;
    std::vector<MidiTrack> tracks;
    int unitsPerBar;
    int unitTicks;
    Score<ScoreChord> chords;
};

} // namespace

std::vector<DemoSong> MakeSongs() {
    std::vector<DemoSong> songs;
    for (const Song& song : Songs()) songs.push_back({song.Entry, SongWriter(song).Write()});
    return songs;
}

} // namespace morvane::demo
