#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// What separates a folder from a name in a path.
#ifdef _WIN32
inline constexpr char PathSeparator = '\\';
#else
inline constexpr char PathSeparator = '/';
#endif

/// The program file that is running.
struct Program {
    std::string Folder;   ///< the folder that holds it, without a separator at its end
    std::string BaseName; ///< its name without extension
};

/// Finds the running program file; both texts are empty where the platform cannot tell.
Program RunningProgram();

/// Makes a write past the process's limit of file sizes fail like one to a full disk, instead of ending the
/// program.
void SurviveFileSizeLimits();

/// Folder and name joined with one separator more, whether or not the folder ends in one.
std::string JoinPath(std::string_view folder, std::string_view name);

/// True when a normal file of exactly this path exists: no folder, no device, and not hidden (a name with a
/// leading dot; on Windows the hidden and system attributes).
bool NormalFileExists(const std::string& path);

/// The path itself when it names a normal file; else the path of a normal file beside it whose name differs
/// in the case of ASCII letters alone (the first in byte order of several); else an empty text.
std::string FindInAnyCase(const std::string& path);

/// True when two names are equal but for the case of ASCII letters.
bool EqualInAnyCase(std::string_view a, std::string_view b);

} // namespace morvane
