#include "Paths.h"
#include "Platform.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

const char morvane::PathSeparator = '/';

namespace morvane::platform {

namespace {

template <typename Call>
auto Continued(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

int Open(const std::string& path, int flags) {
    // O_NONBLOCK keeps a pipe or device of that name from stopping the program; regular files do not heed it.
    return Continued([&] { return open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666); });
}

} // namespace

int OpenToRead(const std::string& path) { return Open(path, O_RDONLY); }

int OpenNew(const std::string& path) { return Open(path, O_WRONLY | O_CREAT | O_EXCL); }

int OpenToOverwrite(const std::string& path) { return Open(path, O_WRONLY | O_CREAT); }

int IsRegular(int descriptor) {
    struct stat status {};
    if (Continued([&] { return fstat(descriptor, &status); }) < 0) return -1;
    return S_ISREG(status.st_mode) ? 1 : 0;
}

std::int64_t ReadAt(int descriptor, std::int64_t position, void* bytes, std::size_t count) {
    return Continued([&] { return pread(descriptor, bytes, count, position); });
}

std::int64_t WriteAt(int descriptor, std::int64_t position, const void* bytes, std::size_t count) {
    return Continued([&] { return pwrite(descriptor, bytes, count, position); });
}

int Truncate(int descriptor, std::int64_t length) {
    return Continued([&] { return ftruncate(descriptor, length); });
}

int Close(int descriptor) {
    // An interrupted close has closed the descriptor all the same.
    const int result = close(descriptor);
    return result < 0 && errno == EINTR ? 0 : result;
}

int Delete(const std::string& path) {
    return Continued([&] { return unlink(path.c_str()); });
}

bool IsHidden(const std::string& path) {
    const std::size_t name = path.rfind('/') + 1; // 0 when there is no separator
    return name < path.size() && path[name] == '.';
}

bool IsNormalFile(const std::string& path) {
    struct stat status {};
    return !IsHidden(path) && Continued([&] { return stat(path.c_str(), &status); }) == 0 &&
           S_ISREG(status.st_mode);
}

std::vector<std::string> NamesToCompare(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder.empty() ? "." : folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error))
        names.push_back(entry->path().filename().string());
    return names;
}

std::string ProgramPath() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

} // namespace morvane::platform
