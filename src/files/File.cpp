#include "File.h"

#include "Failure.h"
#include "Paths.h"
#include "Platform.h"

#include <cerrno>
#include <utility>

namespace morvane {

File::File(int descriptor, std::string path) : Descriptor(descriptor), Path(std::move(path)) {
    if (Descriptor < 0) throw FileSystemFailure(errno, Path);
}

File::File(File&& other) noexcept
    : Descriptor(std::exchange(other.Descriptor, -1)), Path(std::move(other.Path)) {}

File::~File() {
    if (Descriptor >= 0) platform::Close(Descriptor);
}

std::optional<File> File::OpenForReading(const std::string& path) {
    // The usual case, a file that is there, costs no look beforehand.
    if (platform::IsHidden(path)) return std::nullopt;
    const int descriptor = platform::Open(path, platform::Access::Read);
    if (descriptor < 0) {
        const int number = errno;
        if (!NormalFileExists(path)) return std::nullopt;
        throw FileSystemFailure(number, path);
    }
    std::optional<File> file(File(descriptor, path));
    const int regular = platform::IsRegular(descriptor);
    if (regular < 0) throw FileSystemFailure(errno, path);
    if (regular == 0) file.reset();
    return file;
}

std::size_t File::ReadAt(std::int64_t position, Bytes bytes) const {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const std::int64_t count = platform::ReadAt(Descriptor, position + static_cast<std::int64_t>(done),
                                                    bytes.data() + done, bytes.size() - done);
        if (count < 0) throw FileSystemFailure(errno, Path);
        if (count == 0) break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

void File::Write(ConstBytes bytes) {
    const int regular = platform::IsRegular(Descriptor);
    if (regular <= 0) throw FileSystemFailure(regular < 0 ? errno : EINVAL, Path);
    std::size_t done = 0;
    while (done < bytes.size()) {
        const std::int64_t count = platform::WriteAt(Descriptor, static_cast<std::int64_t>(done),
                                                     bytes.data() + done, bytes.size() - done);
        if (count <= 0) throw FileSystemFailure(count < 0 ? errno : EIO, Path);
        done += static_cast<std::size_t>(count);
    }
}

void File::Close() {
    if (platform::Close(std::exchange(Descriptor, -1)) < 0) throw FileSystemFailure(errno, Path);
}

bool WriteNewFile(const std::string& path, ConstBytes bytes) {
    const int descriptor = platform::Open(path, platform::Access::New);
    if (descriptor < 0 && errno == EEXIST) return false;
    File file(descriptor, path);
    file.Write(bytes);
    file.Close();
    return true;
}

void WriteFile(const std::string& path, ConstBytes bytes) {
    File file(platform::Open(path, platform::Access::Create), path);
    file.Write(bytes);
    file.Close();
}

void ReplaceContent(const std::string& path, ConstBytes bytes) {
    File file(platform::Open(path, platform::Access::Overwrite), path);
    file.Write(bytes);
    if (platform::Truncate(file.Descriptor, static_cast<std::int64_t>(bytes.size())) < 0)
        throw FileSystemFailure(errno, path);
    file.Close();
}

bool DeleteFileIfAny(const std::string& path) {
    if (platform::Delete(path) == 0) return true;
    const int number = errno;
    if (AnyFileExists(path)) throw FileSystemFailure(number, path);
    return false;
}

bool AnyFileExists(const std::string& path) { return platform::IsOtherThanFolder(path); }

} // namespace morvane
