// The rows of the benchmark that run in one process: each a pair "row/ours" and "row/floor", the floor being
// what the machine needs for the bytes that must be touched. Takes the folder in which it may write as its
// last argument.
#include "Archives.h"
#include "MapDrawing.h"
#include "PictureFromBMP.h"
#include "frmMain.h"

#include <QApplication>
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <iostream>
#include <unistd.h>

namespace morvane {
namespace {

namespace fs = std::filesystem;
using ByteVector = std::vector<std::uint8_t>;

std::string Scratch; // the folder for everything that is written

encode::Image ImageOf(int side, int seed) {
    const auto length = static_cast<std::uint8_t>(side);
    encode::Image image{length, length, 0, 0, {}};
    for (int i = 0; i < side * side; ++i) image.Pixels.push_back(static_cast<std::uint8_t>(i * 7 + seed));
    return image;
}

// A game folder whose first image archive has that many images of that size, 255 in a group.
std::string GameOf(const std::string& name, int images, int side) {
    std::string folder = Scratch + "/" + name;
    if (fs::exists(folder)) return folder;
    fs::create_directories(folder);
    std::map<int, encode::Group> groups;
    for (int i = 0; i < images; ++i) groups[1 + i / 255].Images.push_back(ImageOf(side, i));
    WriteFile(folder + "/IMG.1", encode::EncodeImageArchive(groups));
    std::vector<encode::Entry> sounds(encode::SoundEntryCount);
    for (encode::Entry& entry : sounds) {
        entry.Data.assign(60'000, 1);
        std::memcpy(entry.Data.data(), "MThd", 4);
    }
    WriteFile(folder + "/SND.DAT", encode::EncodeEntryTable(sounds, encode::SoundEntryCount));
    for (const char* other : {"GAME.PAL", "UIF.DAT"}) WriteFile(folder + "/" + other, ByteVector(2000, 9));
    const encode::Map map{};
    WriteFile(folder + "/MAP.1", encode::EncodeMapArchive({&map, 1}, {}, std::int16_t{32767}));
    return folder;
}

GameFolder InFolder(const std::string& folder) { return {folder, 1, "bench"}; }

// Opens a file, reads that many bytes from a position into the buffer, and closes it.
void ReadPiece(const std::string& path, std::int64_t position, ByteVector& buffer) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (pread(file, buffer.data(), buffer.size(), position) < 0) std::abort();
    close(file);
    benchmark::DoNotOptimize(buffer.data());
}

void DirectoryOurs(benchmark::State& state, const std::string& folder) {
    const auto groups = std::make_unique<ImageGroups>();
    while (state.KeepRunning()) ReadImageArchive(InFolder(folder), *groups);
}

void DirectoryFloor(benchmark::State& state, const std::string& folder) {
    std::vector<std::uint8_t> buffer(1 << 20);
    while (state.KeepRunning()) {
        const int file = open((folder + "/IMG.1").c_str(), O_RDONLY | O_CLOEXEC);
        while (read(file, buffer.data(), buffer.size()) > 0) benchmark::DoNotOptimize(buffer.data());
        close(file);
    }
}

void ImageOurs(benchmark::State& state, const std::string& folder) {
    const auto groups = std::make_unique<ImageGroups>();
    ReadImageArchive(InFolder(folder), *groups);
    while (state.KeepRunning())
        benchmark::DoNotOptimize(PictureFromBMP(ReadImage(InFolder(folder), *groups, 1, 0)));
}

void ImageFloor(benchmark::State& state, const std::string& folder) {
    ByteVector pixels(std::size_t{255} * 255);
    const ByteVector from(std::size_t{256} * 255 + 1078 + std::size_t{4} * 255 * 255);
    ByteVector to(from.size());
    while (state.KeepRunning()) {
        ReadPiece(folder + "/IMG.1", 48138, pixels);
        std::memcpy(to.data(), from.data(), from.size());
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
}

void MapOurs(benchmark::State& state, const std::string& folder, const std::string& programFolder) {
    const auto cells = std::make_unique<MapCellTable>();
    Picture picture(MapPictureSide, MapPictureSide);
    std::vector<MapEntry> maps;
    InitSymbolColors();
    LoadMapSymbols(programFolder, 1);
    ReadMapArchive(InFolder(folder), maps);
    while (state.KeepRunning()) {
        ReadMapCells(InFolder(folder), maps[0], *cells);
        DrawMapCells(*cells, picture);
        benchmark::ClobberMemory();
    }
}

void MapFloor(benchmark::State& state, const std::string& folder) {
    ByteVector record(8192);
    const std::vector<Pixel> from(std::size_t{448} * 448);
    std::vector<Pixel> to(from.size());
    while (state.KeepRunning()) {
        ReadPiece(folder + "/MAP.1", 514, record);
        std::memcpy(to.data(), from.data(), from.size() * sizeof(Pixel));
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
}

std::string SymbolFile() {
    std::string folder = Scratch + "/symbols";
    fs::create_directories(folder);
    std::string text;
    for (int plane = 0; plane < 2; ++plane) {
        text += "[Plane " + std::to_string(plane) + "]\r\n";
        for (int code = 0; code < 256; ++code)
            text += std::to_string(code) + "=x," + std::string(49, static_cast<char>('0' + code % 10)) +
                    ",Name " + std::to_string(code) + "\r\n";
    }
    WriteFile(folder + "/Episode1.tsd", {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    return folder;
}

void SymbolsOurs(benchmark::State& state, const std::string& folder) {
    InitSymbolColors();
    while (state.KeepRunning()) LoadMapSymbols(folder, 1);
}

void SymbolsFloor(benchmark::State& state, const std::string& folder) {
    ByteVector text(fs::file_size(folder + "/Episode1.tsd"));
    while (state.KeepRunning()) {
        ReadPiece(folder + "/Episode1.tsd", 0, text);
        const auto* end = text.data() + text.size();
        int lines = 0;
        for (const std::uint8_t* at = text.data();
             (at = static_cast<const std::uint8_t*>(
                  std::memchr(at, '\r', static_cast<std::size_t>(end - at)))) != nullptr;
             ++at)
            ++lines;
        benchmark::DoNotOptimize(lines);
    }
}

void ListOurs(benchmark::State& state, frmMain& window) {
    while (state.KeepRunning()) window.LoadMapArchive();
}

void ListFloor(benchmark::State& state) {
    while (state.KeepRunning()) {
        std::vector<std::string> texts;
        for (int i = 0; i < 32767; ++i)
            texts.push_back("Map " + std::to_string(i)); // NOLINT: appending is the floor
        benchmark::DoNotOptimize(texts.data());
    }
}

double Seconds(const std::function<void()>& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// An export into a folder, and a copy of its result; both timed alone. The folder is emptied before, unless
// the files of the last run shall be there.
struct ExportRow {
    std::string Name;
    std::function<void(const std::string& folder)> Run;
    bool Again;

    void Prepare(const std::string& folder) const {
        if (Again && fs::exists(folder)) return;
        fs::remove_all(folder);
        fs::create_directories(folder);
        if (Again) Run(folder);
    }
    [[nodiscard]] std::string Folder(const char* kind) const { return Scratch + "/" + Name + " " + kind; }

    void Ours(benchmark::State& state) const {
        const std::string folder = Folder("ours");
        while (state.KeepRunning()) {
            Prepare(folder);
            state.SetIterationTime(Seconds([&] { Run(folder); }));
        }
    }
    void Floor(benchmark::State& state) const {
        const std::string from = Folder("result");
        const std::string folder = Folder("floor");
        if (!fs::exists(from)) {
            fs::create_directories(from);
            Run(from);
        }
        const std::string command = "cp -r '" + from + "/.' '" + folder + "'";
        while (state.KeepRunning()) {
            Prepare(folder);
            state.SetIterationTime(Seconds([&] {
                if (std::system(command.c_str()) != 0) std::abort(); // NOLINT: the floor is that command
            }));
        }
    }
};

void Register(const std::string& row, const std::function<void(benchmark::State&)>& ours,
              const std::function<void(benchmark::State&)>& floor) {
    benchmark::RegisterBenchmark((row + "/ours").c_str(), ours);
    benchmark::RegisterBenchmark((row + "/floor").c_str(), floor);
}

void RegisterExport(const ExportRow& row) {
    for (const bool ours : {true, false})
        benchmark::RegisterBenchmark(
            (row.Name + (ours ? "/ours" : "/floor")).c_str(),
            [row, ours](benchmark::State& state) { ours ? row.Ours(state) : row.Floor(state); })
            ->UseManualTime()
            ->Iterations(1);
}

// A window on a game folder, for what belongs to the window.
std::unique_ptr<frmMain> WindowOn(const std::string& folder, const std::string& programFolder) {
    auto window = std::make_unique<frmMain>(Program{programFolder, "bench"});
    window->Game = InFolder(folder);
    window->LoadImageArchive();
    window->LoadSoundArchive();
    return window;
}

void RegisterAll(const std::string& programFolder) {
    static std::vector<std::unique_ptr<frmMain>> windows;
    const std::string demo = Scratch + "/demo"; // bench.py has it packed
    const std::string big = GameOf("directory", 511 * 255, 32);
    const std::string tenth = GameOf("tenth of directory", 511 * 255 / 10, 32);
    const std::string large = GameOf("image", 255, 255);
    const std::string many = GameOf("images", 20'000, 64);
    const std::string few = GameOf("tenth of images", 2'000, 64);
    const std::string symbols = SymbolFile();
    using benchmark::State;
    Register(
        "directory", [=](State& s) { DirectoryOurs(s, big); }, [=](State& s) { DirectoryFloor(s, big); });
    Register(
        "growth of directory", [=](State& s) { DirectoryOurs(s, big); },
        [=](State& s) { DirectoryOurs(s, tenth); });
    Register(
        "image", [=](State& s) { ImageOurs(s, large); }, [=](State& s) { ImageFloor(s, large); });
    Register(
        "map", [=](State& s) { MapOurs(s, demo, programFolder); }, [=](State& s) { MapFloor(s, demo); });
    Register(
        "symbols", [=](State& s) { SymbolsOurs(s, symbols); }, [=](State& s) { SymbolsFloor(s, symbols); });
    InitSymbolColors();
    LoadMapSymbols(programFolder, 1);
    windows.push_back(WindowOn(many, programFolder));
    windows.push_back(WindowOn(few, programFolder));
    frmMain* full = windows[0].get();
    frmMain* small = windows[1].get();
    Register(
        "list", [=](State& s) { ListOurs(s, *full); }, [](State& s) { ListFloor(s); });
    RegisterExport({"export images", [=](const std::string& f) { full->ExportAllImages(f); }, false});
    RegisterExport({"export again", [=](const std::string& f) { full->ExportAllImages(f); }, true});
    RegisterExport({"export sounds", [=](const std::string& f) { full->ExportAllSounds(f); }, false});
    RegisterExport({"tenth of export", [=](const std::string& f) { small->ExportAllImages(f); }, false});
}

} // namespace
} // namespace morvane

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    morvane::Scratch = argv[argc - 1];
    morvane::RegisterAll(morvane::RunningProgram().Folder + "/../bin");
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
