#include "Score.h"

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>

namespace morvane::demo {

namespace {

[[noreturn]] void Refuse(std::string_view word) {
    throw std::logic_error("not understood in a score: " + std::string(word));
}

// Cuts the first word off the text; empty at the end.
std::string_view NextWord(std::string_view& text) {
    constexpr std::string_view blanks = " \n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    text.remove_prefix(first);
    const std::string_view word = text.substr(0, text.find_first_of(blanks));
    text.remove_prefix(word.size());
    return word;
}

int ReadLength(std::string_view digits) {
    int length = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9' || length > 999) Refuse(digits);
        length = 10 * length + (digit - '0');
    }
    if (length == 0) Refuse(digits);
    return length;
}

// Cuts letter and alteration off a word: half tones above C, from -1 to 12.
int ReadPitch(std::string_view& word, char letterOfA) {
    constexpr std::array<int, 7> halfTones = {9, 11, 0, 2, 4, 5, 7}; // from A to G
    const int letter = word.empty() ? -1 : word.front() - letterOfA;
    if (letter < 0 || letter > 6) Refuse(word);
    int pitch = halfTones[static_cast<std::size_t>(letter)];
    word.remove_prefix(1);
    if (word.starts_with('#') || word.starts_with('b')) {
        pitch += word.front() == '#' ? 1 : -1;
        word.remove_prefix(1);
    }
    return pitch;
}

// Hands every word that is neither bar line nor rest to `take` with its place.
template <typename Item, typename Take>
Score<Item> ReadScore(std::string_view text, int unitsPerBar, Take take) {
    Score<Item> score;
    int length = 0;
    for (std::string_view word = NextWord(text); !word.empty(); word = NextWord(text)) {
        if (word == "|") {
            if (score.Length % unitsPerBar != 0)
                throw std::logic_error("bar " + std::to_string(score.Length / unitsPerBar + 1) +
                                       " of a score is not full");
            continue;
        }
        const std::size_t colon = word.find(':');
        if (colon != std::string_view::npos) length = ReadLength(word.substr(colon + 1));
        if (length == 0) Refuse(word);
        const std::string_view name = word.substr(0, colon);
        if (name != "r") score.Items.push_back(take(name, score.Length, length));
        score.Length += length;
    }
    if (score.Length % unitsPerBar != 0) throw std::logic_error("the last bar of a score is not full");
    return score;
}

} // namespace

Score<ScoreNote> ReadNotes(std::string_view text, int unitsPerBar) {
    return ReadScore<ScoreNote>(text, unitsPerBar, [](std::string_view name, int start, int length) {
        std::string_view rest = name;
        const int pitch = ReadPitch(rest, 'a');
        if (rest.size() != 1 || rest[0] < '0' || rest[0] > '8') Refuse(name);
        return ScoreNote{start, length, 12 * (rest[0] - '0' + 1) + pitch};
    });
}

Score<ScoreChord> ReadChords(std::string_view text, int unitsPerBar) {
    return ReadScore<ScoreChord>(text, unitsPerBar, [](std::string_view name, int start, int length) {
        std::string_view rest = name;
        const int pitch = (ReadPitch(rest, 'A') + 12) % 12;
        if (!rest.empty() && rest != "m") Refuse(name);
        return ScoreChord{start, length, pitch, rest == "m"};
    });
}

} // namespace morvane::demo
