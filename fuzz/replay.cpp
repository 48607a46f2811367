#include "Fuzz.h"

#include <fstream>
#include <iterator>

namespace {

int Replay(const std::filesystem::path& path) {
    // Told before it runs, so that the last name is that of the input which ended the program.
    std::printf("%s\n", path.string().c_str());
    std::fflush(stdout);
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return 1;
}

} // namespace

/// Runs every file named on the command line and every file of the folders named there; a folder that does
/// not exist has none. Fails when there was nothing to run.
int main(int argc, char** argv) {
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        if (std::filesystem::is_directory(argv[i])) {
            for (const auto& entry : std::filesystem::directory_iterator(argv[i]))
                count += Replay(entry.path());
        } else if (std::filesystem::exists(argv[i])) {
            count += Replay(argv[i]);
        }
    }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
