#include "File.h"

#include "Failure.h"
#include "Paths.h"
#include "Platform.h"

#include <cerrno>
#include <utility>

namespace morvane {

namespace {

/// A file that is being written.
class WrittenFile {
  public:
    /// Takes over what opening the file gave, be it a failure.
    WrittenFile(const std::string& path, int descriptor) : Path(path), Opened(descriptor) {
        Check(descriptor);
    }

    void RequireRegular() const {
        const int regular = platform::IsRegular(Opened.Get());
        Check(regular);
        if (regular == 0) throw FileSystemFailure(EINVAL, Path);
    }
    void Write(ConstBytes bytes) const {
        std::size_t done = 0;
        while (done < bytes.size()) {
            const std::int64_t count = platform::WriteAt(Opened.Get(), static_cast<std::int64_t>(done),
                                                         bytes.data() + done, bytes.size() - done);
            Check(count);
            if (count == 0) throw FileSystemFailure(EIO, Path);
            done += static_cast<std::size_t>(count);
        }
    }
    void CutTo(std::size_t length) const {
        Check(platform::Truncate(Opened.Get(), static_cast<std::int64_t>(length)));
    }
    void Close() { Check(Opened.Close()); }

  private:
    void Check(std::int64_t result) const {
        if (result < 0) throw FileSystemFailure(errno, Path);
    }

    const std::string& Path;
    Descriptor Opened;
};

} // namespace

std::optional<File> File::OpenNormal(const std::string& path) {
    // The usual case, a file that is there, costs no look beforehand.
    if (platform::IsHidden(path)) return std::nullopt;
    File file(path, Descriptor(platform::OpenToRead(path)));
    if (file.Opened.Get() < 0) {
        const int number = errno;
        if (!IsNormalFile(path)) return std::nullopt;
        throw FileSystemFailure(number, path);
    }
    const int regular = platform::IsRegular(file.Opened.Get());
    if (regular < 0) throw FileSystemFailure(errno, path);
    if (regular == 0) return std::nullopt;
    return file;
}

std::size_t File::ReadAt(std::int64_t position, Bytes bytes) const {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const std::int64_t count = platform::ReadAt(Opened.Get(), position + static_cast<std::int64_t>(done),
                                                    bytes.data() + done, bytes.size() - done);
        if (count < 0) throw FileSystemFailure(errno, Path);
        if (count == 0) break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

void WriteInPlace(const std::string& path, ConstBytes bytes) {
    WrittenFile file(path, platform::OpenToOverwrite(path));
    file.RequireRegular();
    file.Write(bytes);
    file.CutTo(bytes.size());
    file.Close();
}

bool WriteByteArray(const std::string& fileName, ConstBytes bytes, bool overwrite) {
    int descriptor = platform::OpenNew(fileName);
    if (descriptor < 0 && errno == EEXIST) {
        if (!overwrite) return false;
        if (platform::Delete(fileName) < 0) throw FileSystemFailure(errno, fileName);
        descriptor = platform::OpenNew(fileName);
    }
    WrittenFile file(fileName, descriptor);
    file.Write(bytes);
    file.Close();
    return true;
}

} // namespace morvane
