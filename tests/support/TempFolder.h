#pragma once

#include "Failure.h"
#include "Paths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

namespace morvane {

using ByteVector = std::vector<std::uint8_t>;

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

    const std::string Path =
        (std::filesystem::temp_directory_path() / ("morvane-" + std::to_string(std::random_device()())))
            .string();
};

/// The whole content of a file, read without the code under test; empty when there is none.
inline ByteVector BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
inline std::string TextOf(const std::string& path) {
    const ByteVector bytes = BytesOf(path);
    return {bytes.begin(), bytes.end()};
}

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
