#pragma once

#include "File.h"
#include "GameFolder.h"

#include <cstdint>
#include <string_view>

namespace morvane {

/// One game file, open for reading by absolute byte positions. Whatever lies before the start or past the end
/// of the file reads as zero. Closed when it goes out of scope.
class GameFile {
  public:
    /// Opens a game file of the folder and episode in use, given its name or a template with "%EP%". Raises
    /// the not-found failure (number 53, the full path and " not found.") when it is absent.
    GameFile(const GameFolder& game, std::string_view name);

    /// Fills all the bytes from a position.
    void Read(std::int64_t position, Bytes bytes) const;

  private:
    File Opened;
};

} // namespace morvane
