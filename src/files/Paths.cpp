#include "Paths.h"

#include "Platform.h"

#include <algorithm>
#include <filesystem>

namespace morvane {

namespace {

char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

Program SplitProgramPath(const std::string& path) {
    const std::size_t separator = path.rfind(PathSeparator);
    if (separator == std::string::npos) return {"", path};
    const std::string name = path.substr(separator + 1);
    return {path.substr(0, separator), name.substr(0, name.rfind('.'))};
}

} // namespace

Program RunningProgram() {
    static const Program program = SplitProgramPath(platform::ProgramPath());
    return program;
}

void SurviveFileSizeLimits() { platform::IgnoreFileSizeSignal(); }

std::string JoinPath(std::string_view folder, std::string_view name) {
    std::string path(folder);
    path += PathSeparator;
    path += name;
    return path;
}

bool NormalFileExists(const std::string& path) { return platform::IsNormalFile(path); }

bool EqualInAnyCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

std::string FindInAnyCase(const std::string& path) {
    if (NormalFileExists(path)) return path;
    const std::size_t nameStart = path.rfind(PathSeparator) + 1; // 0 when there is no separator
    const std::string folder = path.substr(0, nameStart);
    const std::string_view name = std::string_view(path).substr(nameStart);
    std::string found;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder.empty() ? "." : folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string candidate = folder + entry->path().filename().string();
        if (EqualInAnyCase(std::string_view(candidate).substr(nameStart), name) &&
            NormalFileExists(candidate) && (found.empty() || candidate < found))
            found = candidate;
    }
    return found;
}

} // namespace morvane
