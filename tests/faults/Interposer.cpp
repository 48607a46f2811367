#include "Interposer.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <map>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace morvane::faults {

namespace {

struct Plan {
    std::string Root;
    Kind What{};
    int Nth = 0; // 0: none
    std::function<void()> Hook;
    int Count = 0;
    std::vector<std::string> Hit;
};

enum class Fate { Normal, Half, Failure };

Plan Now;
std::map<int, std::string> Paths; // of the descriptors that are open

// What becomes of a call; when it is failure, the number is in errno.
Fate FateOf(unsigned call, std::string_view path) {
    if (Now.Nth == 0 || (Now.What.Calls & call) == 0 || !path.starts_with(Now.Root)) return Fate::Normal;
    ++Now.Count;
    if (Now.Count != Now.Nth && !(Now.What.Lasts && Now.Count > Now.Nth)) return Fate::Normal;
    Now.Hit.emplace_back(path);
    if (Now.Hook) {
        std::exchange(Now.Hook, {})();
        return Fate::Normal;
    }
    if (Now.What.Half && Now.Count == Now.Nth) return Fate::Half;
    errno = Now.What.Error;
    return Fate::Failure;
}

Fate FateOf(unsigned call, int descriptor) {
    const auto found = Paths.find(descriptor);
    return found == Paths.end() ? Fate::Normal : FateOf(call, found->second);
}

std::size_t Half(std::size_t count) { return std::max<std::size_t>(count / 2, 1); }

} // namespace

void Arm(const std::string& root, const Kind& kind, int nth, std::function<void()> hook) {
    Now = {root, kind, nth, std::move(hook), 0, {}};
}

std::vector<std::string> Disarm() { return std::exchange(Now, {}).Hit; }

// The linker leads the program's calls to the wrapped ones and ours of the real ones to the platform.
extern "C" {
int RealOpen(const char* path, int flags, ...) asm("__real_open");
int RealStat(const char* path, struct stat* status) asm("__real_stat");
int RealLstat(const char* path, struct stat* status) asm("__real_lstat");
int RealFstat(int descriptor, struct stat* status) asm("__real_fstat");
ssize_t RealRead(int descriptor, void* bytes, std::size_t count, off_t position) asm("__real_pread");
ssize_t RealWrite(int descriptor, const void* bytes, std::size_t count, off_t position) asm("__real_pwrite");
int RealTruncate(int descriptor, off_t length) asm("__real_ftruncate");
int RealClose(int descriptor) asm("__real_close");
int RealUnlink(const char* path) asm("__real_unlink");

int WrappedOpen(const char* path, int flags, mode_t mode) asm("__wrap_open");
int WrappedStat(const char* path, struct stat* status) asm("__wrap_stat");
int WrappedLstat(const char* path, struct stat* status) asm("__wrap_lstat");
int WrappedFstat(int descriptor, struct stat* status) asm("__wrap_fstat");
ssize_t WrappedRead(int descriptor, void* bytes, std::size_t count, off_t position) asm("__wrap_pread");
ssize_t WrappedWrite(int descriptor, const void* bytes, std::size_t count,
                     off_t position) asm("__wrap_pwrite");
int WrappedTruncate(int descriptor, off_t length) asm("__wrap_ftruncate");
int WrappedClose(int descriptor) asm("__wrap_close");
int WrappedUnlink(const char* path) asm("__wrap_unlink");
}

int WrappedOpen(const char* path, int flags, mode_t mode) {
    const unsigned call = (flags & O_CREAT) != 0 ? Open | Create : Open;
    if (FateOf(call, path) == Fate::Failure) return -1;
    const int descriptor = RealOpen(path, flags, mode);
    if (descriptor >= 0) Paths[descriptor] = path;
    return descriptor;
}

int WrappedStat(const char* path, struct stat* status) {
    return FateOf(Stat, path) == Fate::Failure ? -1 : RealStat(path, status);
}

int WrappedLstat(const char* path, struct stat* status) {
    return FateOf(Stat, path) == Fate::Failure ? -1 : RealLstat(path, status);
}

int WrappedFstat(int descriptor, struct stat* status) {
    return FateOf(Stat, descriptor) == Fate::Failure ? -1 : RealFstat(descriptor, status);
}

ssize_t WrappedRead(int descriptor, void* bytes, std::size_t count, off_t position) {
    const Fate fate = FateOf(Read, descriptor);
    if (fate == Fate::Failure) return -1;
    return RealRead(descriptor, bytes, fate == Fate::Half ? Half(count) : count, position);
}

ssize_t WrappedWrite(int descriptor, const void* bytes, std::size_t count, off_t position) {
    const Fate fate = FateOf(Write, descriptor);
    if (fate == Fate::Failure) return -1;
    return RealWrite(descriptor, bytes, fate == Fate::Half ? Half(count) : count, position);
}

int WrappedTruncate(int descriptor, off_t length) {
    return FateOf(Truncate, descriptor) == Fate::Failure ? -1 : RealTruncate(descriptor, length);
}

int WrappedClose(int descriptor) {
    const Fate fate = FateOf(Close, descriptor);
    const int number = errno;
    Paths.erase(descriptor);
    const int result = RealClose(descriptor);
    if (fate != Fate::Failure) return result;
    errno = number;
    return -1;
}

int WrappedUnlink(const char* path) { return FateOf(Unlink, path) == Fate::Failure ? -1 : RealUnlink(path); }

} // namespace morvane::faults
