#pragma once

#include "File.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace morvane {

/// Reads a text file line by line. A line ends at CR or CR LF or with the file; any other LF is a character
/// of its line. The file must outlive the reader.
class LineReader {
  public:
    explicit LineReader(const File& file);

    /// The next line without its end; nothing when there is none left. Fails with a Failure when reading
    /// does.
    std::optional<std::string> Next();

  private:
    bool Fill();
    std::size_t LengthAhead();

    const File& Source;
    std::unique_ptr<std::uint8_t[]> Chunk;
    std::size_t Begin = 0; ///< the bytes of the chunk that are still to be read
    std::size_t End = 0;
    std::int64_t Position = 0; ///< where the next chunk starts in the file
    bool AfterReturn = false;  ///< the last byte read was CR
};

} // namespace morvane
