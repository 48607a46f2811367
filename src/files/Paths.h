#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// What separates a folder from a name in a path.
extern const char PathSeparator;

/// A program file.
struct Program {
    std::string Folder;   ///< the folder that holds it; ends in a separator only when it is a root
    std::string BaseName; ///< its name without the extension, which a leading dot does not begin
};

/// Splits the full path of a program file.
Program SplitProgramPath(const std::string& path);

/// The program file that is running; both texts are empty where the platform cannot tell.
Program RunningProgram();

/// Joins a folder and a name with one more separator, whether or not the folder ends in one.
std::string JoinPath(std::string_view folder, std::string_view name);

/// True when a normal file of exactly this path exists: no folder, no device, and not hidden (a name with a
/// leading dot; on Windows the hidden and system attributes).
bool IsNormalFile(const std::string& path);

/// Looks through the folder of a path for a normal file whose name differs in the case of ASCII letters
/// alone. Returns its path, the first in byte order of several, or an empty text. Finds nothing where the
/// file system itself does not tell case apart.
std::string FindInOtherCase(const std::string& path);

} // namespace morvane
