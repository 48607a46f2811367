#include "DemoGame.h"
#include "Failure.h"
#include "File.h"
#include "Paths.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

namespace {

void WriteGame(const std::string& folder) {
    std::filesystem::create_directories(folder);
    for (const morvane::demo::GameFile& file : morvane::demo::MakeDemoGame())
        morvane::WriteFile(morvane::JoinPath(folder, file.Name), file.Bytes);
}

} // namespace

int main(int argc, char** argv) {
    const std::string first = argc > 1 ? argv[1] : "";
    const bool help = first == "-h" || first == "--help";
    if (argc != 2 || help || first.empty()) {
        std::fputs("Usage: make-demo-game FOLDER\n"
                   "Writes a complete game folder of our own making; the folder is made if it is missing.\n",
                   help ? stdout : stderr);
        return help ? 0 : 1;
    }
    try {
        WriteGame(first);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "make-demo-game: %s\n", failure.what());
        return 1;
    }
    return 0;
}
