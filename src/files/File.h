#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace morvane {

using Bytes = std::span<std::uint8_t>;
using ConstBytes = std::span<const std::uint8_t>;

/// An open regular file, closed when it goes out of scope. Reading and writing continue after interruptions
/// and short transfers; what fails raises a Failure with the platform's number and the path in its
/// description.
class File {
  public:
    /// Opens a normal file for reading. Nothing when there is none of exactly this path (see
    /// NormalFileExists); fails when there is one that cannot be opened.
    static std::optional<File> OpenForReading(const std::string& path);

    File(File&& other) noexcept;
    File& operator=(File&&) = delete;
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File();

    /// Reads from a byte position (0 or more) as many bytes as the file has there, at most as many as fit;
    /// how many.
    [[nodiscard]] std::size_t ReadAt(std::int64_t position, Bytes bytes) const;

  private:
    friend bool WriteNewFile(const std::string& path, ConstBytes bytes);
    friend void WriteFile(const std::string& path, ConstBytes bytes);
    friend void ReplaceContent(const std::string& path, ConstBytes bytes);

    File(int descriptor, std::string path);
    void Write(ConstBytes bytes);
    void Close();

    int Descriptor;
    std::string Path;
};

/// Makes a file that holds exactly these bytes; false when there is something of that name, which stays
/// untouched.
bool WriteNewFile(const std::string& path, ConstBytes bytes);

/// Makes a file that holds exactly these bytes and closes it; one of that name is cut to nothing first. A
/// failure to close it counts as well.
void WriteFile(const std::string& path, ConstBytes bytes);

/// Gives a file exactly these bytes, writing over the old ones before the rest is cut off, so that a disk
/// which takes no more bytes leaves the old content; makes the file when there is none.
void ReplaceContent(const std::string& path, ConstBytes bytes);

/// Deletes the file of that name; false when there is none (a folder does not count).
bool DeleteFileIfAny(const std::string& path);

/// True when there is anything of that name but a folder, hidden files and links that lead nowhere included.
bool AnyFileExists(const std::string& path);

} // namespace morvane
