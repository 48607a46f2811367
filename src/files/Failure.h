#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace morvane {

/// The record of an error, raised where something fails and carried up to whoever reports it.
class Failure : public std::exception {
  public:
    /// The source is the running program, unless another one is given.
    Failure(std::int32_t number, std::string description);
    Failure(std::int32_t number, std::string source, std::string description);

    [[nodiscard]] const char* what() const noexcept override { return Description.c_str(); }

    std::int32_t Number;     ///< error number, never 0; the platform's own for failures of the file system
    std::string Source;      ///< where it was raised
    std::string Description; ///< message text; names the file if one is concerned
};

/// Error numbers that the program itself raises.
inline constexpr std::int32_t OverflowError = 6;
inline constexpr std::int32_t OutOfMemoryError = 7;
inline constexpr std::int32_t OutOfRangeError = 9;
inline constexpr std::int32_t WrongTypeError = 13;
inline constexpr std::int32_t InternalError = 51; ///< an exception that nothing here expects
inline constexpr std::int32_t FileNotFoundError = 53;

/// The failure of a file system call: the platform's number and its text for it, behind the path if there is
/// one.
Failure FileSystemFailure(int platformNumber, const std::string& path);

} // namespace morvane
