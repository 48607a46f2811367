#include "Paths.h"
#include "Platform.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#ifndef NOMINMAX
#define NOMINMAX // some standard libraries have done so
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

const char morvane::PathSeparator = '\\';

namespace morvane::platform {

namespace {

/// As many bytes as one call moves at most.
unsigned AtOnce(std::size_t count) { return static_cast<unsigned>(std::min<std::size_t>(count, INT_MAX)); }

int Open(const std::string& path, int flags) {
    return _open(path.c_str(), flags | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
}

} // namespace

int OpenToRead(const std::string& path) { return Open(path, _O_RDONLY); }

int OpenNew(const std::string& path) {
    const int opened = Open(path, _O_WRONLY | _O_CREAT | _O_EXCL);
    if (opened < 0 || IsRegular(opened) == 1) return opened;
    _close(opened); // a device, such as NUL: what is written there is nowhere
    errno = EINVAL;
    return -1;
}

int OpenToOverwrite(const std::string& path) { return Open(path, _O_WRONLY | _O_CREAT); }

int IsRegular(int descriptor) {
    return GetFileType(reinterpret_cast<HANDLE>(_get_osfhandle(descriptor))) == FILE_TYPE_DISK ? 1 : 0;
}

std::int64_t ReadAt(int descriptor, std::int64_t position, void* bytes, std::size_t count) {
    if (_lseeki64(descriptor, position, SEEK_SET) < 0) return -1;
    return _read(descriptor, bytes, AtOnce(count));
}

std::int64_t WriteAt(int descriptor, std::int64_t position, const void* bytes, std::size_t count) {
    if (_lseeki64(descriptor, position, SEEK_SET) < 0) return -1;
    return _write(descriptor, bytes, AtOnce(count));
}

int Truncate(int descriptor, std::int64_t length) { return _chsize_s(descriptor, length) == 0 ? 0 : -1; }

int Close(int descriptor) { return _close(descriptor); }

int Delete(const std::string& path) { return _unlink(path.c_str()); }

bool IsHidden(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           (attributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0;
}

bool IsNormalFile(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !IsHidden(path) &&
           (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) == 0;
}

std::vector<std::string> NamesToCompare(const std::string& /*folder*/) { return {}; }

std::string ProgramPath() {
    std::string path(32768, '\0');
    path.resize(GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

} // namespace morvane::platform
