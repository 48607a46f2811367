#pragma once

#include <string_view>
#include <vector>

namespace morvane::demo {

/// Positions and lengths are in the units of the text, whatever note value its author counts by.
struct ScoreNote {
    int Start;
    int Length;
    int Key; ///< MIDI key, c4 is 60
};

struct ScoreChord {
    int Start;
    int Length;
    int Root; ///< 0 for C to 11 for B
    bool Minor;
};

template <typename Item>
struct Score {
    std::vector<Item> Items;
    int Length = 0; ///< in units, rests at the end included
};

/// Words with blanks between them. A note is a letter c to b, "#" or "b" if altered, and an octave digit:
/// "f#4"; "r" is a rest. ":n" gives its length; without it the length of the word before counts. "|" ends a
/// bar and must stand where one ends. Text that breaks these rules raises std::logic_error with the word.
Score<ScoreNote> ReadNotes(std::string_view text, int unitsPerBar);

/// The same with chords in place of notes: a capital C to B, "#" or "b" if altered, "m" if minor: "F#m:8".
Score<ScoreChord> ReadChords(std::string_view text, int unitsPerBar);

} // namespace morvane::demo
