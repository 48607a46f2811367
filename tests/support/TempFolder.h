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

/// Tells what is seen otherwise than wanted, a line for each; long values from shortly before they part.
inline std::string Differences(const Contents& seen, const Contents& wanted) {
    Contents all = seen;
    all.insert(wanted.begin(), wanted.end());
    std::string told;
    for (const auto& entry : all) {
        const std::string& name = entry.first;
        const auto valueIn = [&](const Contents& contents) {
            return contents.contains(name) ? testing::PrintToString(contents.at(name)) : "nothing";
        };
        const std::string is = valueIn(seen), should = valueIn(wanted);
        const auto same = std::ranges::mismatch(is, should).in1 - is.begin();
        const std::size_t from = same > 30 ? static_cast<std::size_t>(same) - 30 : 0;
        if (is != should)
            told +=
                "\nbut " + name + " shows " + is.substr(from, 60) + " instead of " + should.substr(from, 60);
    }
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
