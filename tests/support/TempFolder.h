#pragma once

#include "Failure.h"
#include "File.h"
#include "Paths.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace morvane {

using ByteVector = std::vector<std::uint8_t>;

/// A new empty folder, removed at the end of its scope.
class TempFolder {
  public:
    TempFolder() {
        static std::atomic<int> count = 0;
        const auto name =
            "morvane-" + std::to_string(reinterpret_cast<std::uintptr_t>(&count) ^ Seed()) + "-";
        Path = (std::filesystem::temp_directory_path() / (name + std::to_string(++count))).string();
        std::filesystem::create_directories(Path);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(Path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    [[nodiscard]] std::string operator/(const std::string& name) const { return JoinPath(Path, name); }

    /// Writes a file into the folder; its path.
    std::string Write(const std::string& name, const ByteVector& bytes) const {
        std::ofstream(*this / name, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return *this / name;
    }
    std::string Write(const std::string& name, const std::string& text) const {
        return Write(name, ByteVector(text.begin(), text.end()));
    }

    std::string Path;

  private:
    static std::uintptr_t Seed() {
        return static_cast<std::uintptr_t>(std::chrono::system_clock::now().time_since_epoch().count());
    }
};

/// A whole file's bytes, read without the code under test; empty when there is none.
inline ByteVector BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string TextOf(const std::string& path) {
    const ByteVector bytes = BytesOf(path);
    return {bytes.begin(), bytes.end()};
}

/// Runs an action that must raise a Failure, and returns that.
template <typename Action>
Failure FailureOf(Action action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure;
    }
    ADD_FAILURE() << "no failure was raised";
    return {-1, "", ""};
}

} // namespace morvane
