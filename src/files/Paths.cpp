#include "Paths.h"

#include "Platform.h"

#include <algorithm>

namespace morvane {

Program SplitProgramPath(const std::string& path) {
    const std::size_t separator = path.rfind(PathSeparator);
    if (separator == std::string::npos) return {"", ""};
    const std::string name = path.substr(separator + 1);
    const std::size_t dot = name.rfind('.');
    // The separator of a root belongs to the folder.
    const bool root = path.find(PathSeparator) == separator && (separator == 0 || path[separator - 1] == ':');
    return {path.substr(0, root ? separator + 1 : separator), dot == 0 ? name : name.substr(0, dot)};
}

Program RunningProgram() {
    static const Program program = SplitProgramPath(platform::ProgramPath());
    return program;
}

std::string JoinPath(std::string_view folder, std::string_view name) {
    std::string path(folder);
    path += PathSeparator;
    path += name;
    return path;
}

bool IsNormalFile(const std::string& path) { return platform::IsNormalFile(path); }

std::string FindInOtherCase(const std::string& path) {
    const auto lowerCase = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    const std::size_t nameStart = path.rfind(PathSeparator) + 1; // 0 when there is no separator
    const std::string folder = path.substr(0, nameStart);
    std::string found;
    for (const std::string& name : platform::NamesToCompare(folder)) {
        const std::string candidate = folder + name;
        if (std::ranges::equal(name, path.substr(nameStart), {}, lowerCase, lowerCase) &&
            IsNormalFile(candidate) && (found.empty() || candidate < found))
            found = candidate;
    }
    return found;
}

} // namespace morvane
