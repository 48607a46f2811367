#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The few calls in which platforms differ; for File.cpp, Descriptor.h and Paths.cpp alone. A negative result
/// is a failure whose number is then in errno.
namespace morvane::platform {

/// How a file is opened. None of the ways blocks, whatever the path names.
enum class Access {
    Read,     ///< must exist
    New,      ///< made; must be missing
    Overwrite ///< made when missing, otherwise written over from its start
};

/// Opens a file. Returns its descriptor, which child processes do not inherit.
int Open(const std::string& path, Access access);

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
