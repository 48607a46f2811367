#pragma once

#include "Descriptor.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace morvane {

using Bytes = std::span<std::uint8_t>;
using ConstBytes = std::span<const std::uint8_t>;

/// A normal file that is open for reading, closed when it goes out of scope.
class File {
  public:
    /// Opens a file for reading. Returns nothing when there is no normal file of exactly this path (see
    /// IsNormalFile). Fails when there is one that cannot be opened.
    static std::optional<File> OpenNormal(const std::string& path);

    /// Fills `bytes` from `position`, which is 0 or more. Returns the number of bytes read, fewer at the end
    /// of the file. Fails with the platform's number and the path in the description.
    [[nodiscard]] std::size_t ReadAt(std::int64_t position, Bytes bytes) const;

  private:
    File(std::string path, Descriptor opened) : Path(std::move(path)), Opened(std::move(opened)) {}

    std::string Path;
    Descriptor Opened;
};

// Writers. What fails raises a Failure with the platform's number and the path in its description; a failure
// to close the file counts as well.

/// Writes the bytes over those of a file and only then cuts off the rest; creates the file when there is
/// none. A failure may leave the new beginning before the old rest; a file of one block keeps its old bytes.
void WriteInPlace(const std::string& path, ConstBytes bytes);

/// Writes a new file: deletes what has that name, creates it, writes and closes it. Returns false when there
/// is something of that name and `overwrite` is false; it is then left alone.
bool WriteByteArray(const std::string& fileName, ConstBytes bytes, bool overwrite);

} // namespace morvane
