#pragma once

#include "File.h"
#include "GameFolder.h"
#include "Paths.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <system_error>
#include <vector>

/// Runs one input; whatever is wrong ends the program. Called by libFuzzer, or by replay.cpp.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace morvane::fuzz {

/// Ends the program unless the condition holds.
inline void Check(bool holds, const char* expectation) {
    if (holds) return;
    std::fprintf(stderr, "Does not hold: %s\n", expectation);
    std::abort();
}

/// A folder of this process alone, removed when the process ends of itself.
class Scratch {
  public:
    Scratch()
        : Path((std::filesystem::temp_directory_path() /
                ("morvane-fuzz-" + std::to_string(std::random_device{}()) +
                 std::to_string(std::random_device{}())))
                   .string()) {
        std::filesystem::create_directories(Path);
    }
    ~Scratch() {
        std::error_code ignored;
        std::filesystem::remove_all(Path, ignored);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    /// Gives a file of the folder these bytes; its path.
    [[nodiscard]] std::string Write(const std::string& name, ConstBytes bytes) const {
        std::string path = JoinPath(Path, name);
        ReplaceContent(path, bytes);
        return path;
    }
    [[nodiscard]] GameFolder Game() const { return {Path, 1, "morvane-fuzz"}; }

    const std::string Path;
};

/// The bytes of a file as its readers must see them: zeros wherever the file has none.
class ZeroExtended {
  public:
    explicit ZeroExtended(ConstBytes bytes) : Bytes(bytes) {}

    [[nodiscard]] std::uint8_t At(std::int64_t position) const {
        return position < 0 || position >= std::ssize(Bytes) ? std::uint8_t{0}
                                                             : Bytes[static_cast<std::size_t>(position)];
    }
    /// The little-endian number of up to 4 bytes.
    [[nodiscard]] std::uint32_t Number(std::int64_t position, int bytes) const {
        std::uint32_t value = 0;
        for (int i = 0; i < bytes; ++i) value |= std::uint32_t{At(position + i)} << 8 * i;
        return value;
    }
    [[nodiscard]] std::int32_t Long(std::int64_t position) const {
        return static_cast<std::int32_t>(Number(position, 4));
    }

  private:
    ConstBytes Bytes;
};

} // namespace morvane::fuzz
