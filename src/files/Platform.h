#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The few calls in which platforms differ; for File.cpp, Descriptor.h and Paths.cpp alone. A negative result
/// is a failure whose number is then in errno.
namespace morvane::platform {

// Open a file and return its descriptor, which child processes do not inherit. None of them blocks, whatever
// the path names.
int OpenToRead(const std::string& path);
int OpenNew(const std::string& path);         ///< makes the file, which must be missing; no device
int OpenToOverwrite(const std::string& path); ///< makes the file when it is missing

/// 1 when the descriptor is of a regular file, 0 when it is of anything else.
int IsRegular(int descriptor);

/// Reads or writes once at a byte position. Returns how many bytes were moved, 0 at the end of the file.
std::int64_t ReadAt(int descriptor, std::int64_t position, void* bytes, std::size_t count);
std::int64_t WriteAt(int descriptor, std::int64_t position, const void* bytes, std::size_t count);

/// Cuts the file to a length in bytes.
int Truncate(int descriptor, std::int64_t length);
int Close(int descriptor);
int Delete(const std::string& path);

/// True for a path whose file, if there is one, is hidden.
bool IsHidden(const std::string& path);
/// True for an existing regular file that is not hidden.
bool IsNormalFile(const std::string& path);

/// The names in a folder among which a file may be found in another case. None where the file system does not
/// tell case apart, and none of a folder that cannot be read.
std::vector<std::string> NamesToCompare(const std::string& folder);

/// Full path of the running program file, or an empty text.
std::string ProgramPath();

} // namespace morvane::platform
