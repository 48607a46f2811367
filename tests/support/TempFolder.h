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

/// A text with another one everywhere in the place of a part of it.
inline std::string Replaced(std::string text, const std::string& part, const std::string& by) {
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += by.size())
        text.replace(at, part.size(), by);
    return text;
}

/// Tells what is seen otherwise than wanted, a line for each.
inline std::string Differences(const Contents& seen, const Contents& wanted) {
    const auto shown = [](const Contents& contents, const std::string& name) {
        const auto found = contents.find(name);
        return found == contents.end() ? "nothing" : testing::PrintToString(found->second).substr(0, 300);
    };
    Contents all = seen;
    all.insert(wanted.begin(), wanted.end());
    std::string told;
    for (const auto& [name, content] : all)
        if (!seen.contains(name) || !wanted.contains(name) || seen.at(name) != wanted.at(name))
            told += "\nbut " + name + " shows " + shown(seen, name) + " instead of " + shown(wanted, name);
    return told;
}

/// The whole content of a file, read without the code under test; empty when there is none.
inline std::string TextOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A new empty folder, removed at the end of its scope with those made for it above.
struct TempFolder {
    explicit TempFolder(const std::string& below = "") : Path(Top + below) {
        std::filesystem::create_directories(Path);
    }
    TempFolder(const TempFolder&) = delete;
    ~TempFolder() { std::filesystem::remove_all(Top); }

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

    const std::string Top =
        (std::filesystem::temp_directory_path() / ("morvane-" + std::to_string(std::random_device()())))
            .string();
    const std::string Path;
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
