#pragma once

#include "Failure.h"
#include "Paths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>

namespace morvane {

using ByteVector = std::vector<std::uint8_t>;

/// Contents by the names of what holds them: files, parts of the screen.
using Contents = std::map<std::string, std::string>;

/// Tells what is not as wanted, a line for each name; both values begin shortly before where they part.
inline std::string Differences(const Contents& seen, const Contents& wanted) {
    std::string told;
    for (const auto& [name, value] : wanted) {
        const auto found = seen.find(name);
        if (found == seen.end()) told += "\nbut " + name + " is missing";
        if (found == seen.end() || found->second == value) continue;
        const auto same = std::ranges::mismatch(found->second, value).in2 - value.begin();
        const std::size_t from = same > 30 ? static_cast<std::size_t>(same - 30) : 0;
        const auto piece = [from](const std::string& text) {
            return testing::PrintToString((from > 0 ? "..." : "") + text.substr(from, 60));
        };
        told += "\nbut " + name + " shows " + piece(found->second) + " instead of " + piece(value);
    }
    for (const auto& [name, value] : seen)
        if (!wanted.contains(name)) told += "\nbut there is " + name;
    return told;
}

/// The whole content of a file, read without the code under test; empty when there is none.
inline ByteVector BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
inline std::string TextOf(const std::string& path) {
    const ByteVector bytes = BytesOf(path);
    return {bytes.begin(), bytes.end()};
}

/// A new empty folder, removed at the end of its scope.
struct TempFolder {
    TempFolder() { std::filesystem::create_directories(Path); }
    TempFolder(const TempFolder&) = delete;
    ~TempFolder() { std::filesystem::remove_all(Path); }

    std::string operator/(const std::string& name) const { return JoinPath(Path, name); }

    /// Writes a file into the folder; returns its path.
    // NOLINTBEGIN(modernize-use-nodiscard): few want it
    std::string Write(const std::string& name, const std::string& text) const {
        std::ofstream(*this / name, std::ios::binary) << text;
        return *this / name;
    }
    std::string Write(const std::string& name, const ByteVector& bytes) const {
        return Write(name, std::string(bytes.begin(), bytes.end()));
    }
    // NOLINTEND(modernize-use-nodiscard)

    /// The files in the folder.
    [[nodiscard]] Contents Files() const {
        Contents files;
        for (const auto& entry : std::filesystem::directory_iterator(Path))
            if (entry.is_regular_file())
                files[entry.path().filename().string()] = TextOf(entry.path().string());
        return files;
    }

    const std::string Path =
        (std::filesystem::temp_directory_path() / ("morvane-" + std::to_string(std::random_device()())))
            .string();
};

/// The Failure that an action must raise.
template <typename Action>
Failure FailureOf(Action action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure;
    }
    throw std::logic_error("no failure was raised");
}

} // namespace morvane
