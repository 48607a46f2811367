#pragma once

#include "File.h"
#include "GameFolder.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace morvane {

/// One game file, open for reading by absolute byte positions; numbers are little-endian. Whatever lies
/// before the start or past the end of the file reads as zero. Closed when it goes out of scope.
class GameFile {
  public:
    /// Opens a game file of the folder and episode in use, given its name or a template with "%EP%". Raises
    /// the not-found failure (number 53, the full path and " not found.") when it is absent.
    GameFile(const GameFolder& game, std::string_view name);

    /// Fills all the bytes from a position.
    void Read(std::int64_t position, Bytes bytes) const;

    /// Single numbers; read through a window, so that numbers close together cost few calls of the platform.
    std::uint8_t Byte(std::int64_t position) { return Window(position, 1)[0]; }
    std::uint16_t Word(std::int64_t position) { return WordAt(Window(position, 2)); }
    std::int32_t Long(std::int64_t position) { return LongAt(Window(position, 4)); }

    /// The count bytes (1 to 4096) from a position; they stay valid until the next call.
    ConstBytes Window(std::int64_t position, std::size_t count) {
        const std::int64_t start = position - BufferStart;
        if (start < 0 || start + static_cast<std::int64_t>(count) > BufferLength())
            return MoveWindow(position, count);
        return {Buffer.front().data() + start, count};
    }

    /// The number that the first 2 or 4 bytes hold.
    static std::uint16_t WordAt(ConstBytes bytes) {
        return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
    }
    static std::int32_t LongAt(ConstBytes bytes) {
        return static_cast<std::int32_t>(WordAt(bytes) | static_cast<std::uint32_t>(WordAt(bytes.subspan(2)))
                                                             << 16);
    }

  private:
    // The platform copies whole pages to whole pages fastest.
    static constexpr std::size_t PageSize = 4096;
    struct alignas(PageSize) Page : std::array<std::uint8_t, PageSize> {};

    [[nodiscard]] std::int64_t BufferLength() const {
        return static_cast<std::int64_t>(Buffer.size() * PageSize);
    }
    ConstBytes MoveWindow(std::int64_t position, std::size_t count);

    File Opened;
    std::vector<Page> Buffer;
    std::int64_t BufferStart = 0;
};

} // namespace morvane
