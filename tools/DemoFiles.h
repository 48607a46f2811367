#pragma once

#include "Archives.h"

#include <stdexcept>
#include <string>

/// Readers of the ordinary files that the demo game is made of.
namespace morvane {

/// Throws std::runtime_error with this message when the condition does not hold.
inline void Require(bool condition, const std::string& message) {
    if (!condition) throw std::runtime_error(message);
}

/// Reads the bytes of a BMP file into an image and the colours of its pixels. Throws std::runtime_error,
/// saying what is wrong, unless it is uncompressed, has 8 bits per pixel and 256 colours, is 1 x 1 to 255 x
/// 255 pixels large and stores its rows from the bottom to the top.
encode::Image ReadBMP(const encode::ByteVector& bytes, encode::Palette& colors);

/// Reads a map written as text: a key, one code in a line (plane, character, code from 0 to 255, meaning;
/// lines that begin with ";" are comments), an empty line, 64 lines of 64 characters for plane 0, and as many
/// for plane 1. Empty lines below the key are skipped. Throws std::runtime_error, saying what is wrong, for
/// any other text.
encode::Map ReadMapText(const std::string& text);

} // namespace morvane
