#include "Failure.h"

#include "Paths.h"

#include <system_error>
#include <utility>

namespace morvane {

Failure::Failure(std::int32_t number, std::string description)
    : Failure(number, RunningProgram().BaseName, std::move(description)) {}

Failure::Failure(std::int32_t number, std::string source, std::string description)
    : Number(number), Source(std::move(source)), Description(std::move(description)) {}

Failure FileSystemFailure(int platformNumber, const std::string& path) {
    const std::string text = std::generic_category().message(platformNumber);
    return {platformNumber, path.empty() ? text : path + ": " + text};
}

} // namespace morvane
