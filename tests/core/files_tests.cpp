#include "File.h"
#include "GameFolder.h"
#include "TempFolder.h"

using namespace morvane;

TEST(Paths, AProgramsPathIsSplitIntoFolderAndName) {
    for (std::string text : {"/viewer|/|viewer", "/a/b.c/v.1.exe|/a/b.c|v.1", "/a/b.c/v|/a/b.c|v",
                             "/a/.viewer|/a|.viewer", "/.v.exe|/|.v", "viewer||", "C:/v.exe|C:/|v"}) {
        std::replace(text.begin(), text.end(), '/', PathSeparator);
        const std::string path = text.substr(0, text.find('|'));
        const Program program = SplitProgramPath(path);
        EXPECT_EQ(path + "|" + program.Folder + "|" + program.BaseName, text);
    }
    EXPECT_EQ(std::filesystem::path(RunningProgram().Folder).filename(), "tests");
}

TEST(Paths, NormalFilesAreNeitherFoldersNorHiddenNorDevices) {
    const TempFolder folder;
    std::map<std::string, bool> paths = {
        {folder.Write("seen.x", "x"), true}, {folder.Path, false}, {folder / "missing", false}, {"", false}};
#ifndef _WIN32
    paths[folder.Write(".hidden", "x")] = false;
    paths["/dev/null"] = false;
#endif
    for (const auto& [path, normal] : paths)
        EXPECT_TRUE(IsNormalFile(path) == normal && File::OpenNormal(path).has_value() == normal) << path;
}

#ifndef _WIN32
TEST(Paths, OfSeveralCasesOneIsTaken) {
    const TempFolder folder;
    const GameFolder game{folder.Path, 1};
    std::filesystem::create_directory(folder / "map.1");
    for (const char* name : {"img.1", "iMg.1", "imG.1", "img.11", "IMG", "az@[", "za`{"})
        folder.Write(name, "x");
    EXPECT_TRUE(game.FileExists(folder / "AZ@["));
    for (const char* name : {"IMG.2", "MAP.1", "ZA@[", "AZ`{", "x/IMG.1"})
        EXPECT_FALSE(game.FileExists(folder / name)) << name;
    // Each name is written, or else removed. The first in byte order is taken, and then as long as it exists.
    using Step = std::pair<const char*, const char*>;
    for (const auto& [name, taken] : {Step{"Img.1", "Img.1"}, Step{"IMg.1", "Img.1"}, Step{"IMG.1", "IMG.1"},
                                      Step{"IMG.1", "Img.1"}, Step{"Img.1", "IMg.1"}}) {
        if (!std::filesystem::remove(folder / name)) folder.Write(name, "x");
        EXPECT_EQ(game.ExistingPath(folder / "IMG.1"), folder / taken) << name;
    }
}
#endif

TEST(Files, WritersLeaveExactlyTheNewBytesOrFail) {
    const TempFolder folder;
    const ByteVector bytes{1, 2, 3};
    using Writer = void (*)(const std::string&, ConstBytes);
    const Writer exporting = [](const std::string& path, ConstBytes b) { WriteByteArray(path, b, true); };
    for (const Writer write : {Writer(WriteInPlace), exporting}) {
        for (const std::string& path : {folder.Write("longer", std::string(1000, 'x')), folder / "new"}) {
            write(path, bytes);
            EXPECT_EQ(TextOf(path), std::string(bytes.begin(), bytes.end()));
        }
        std::filesystem::remove(folder / "new");
        for (const std::string& path : {folder / "no/such", folder.Path}) {
            const Failure failure = FailureOf([&] { write(path, bytes); });
            EXPECT_TRUE(failure.Number == (path == folder.Path ? EISDIR : ENOENT) ||
                        failure.Number == EACCES);
            EXPECT_TRUE(failure.Description.starts_with(path + ": ")) << failure.Description;
        }
    }
    EXPECT_FALSE(WriteByteArray(folder.Write("kept", "old"), bytes, false));
#ifndef _WIN32
    EXPECT_EQ(FailureOf([&] { WriteInPlace("/dev/null", bytes); }).Number, EINVAL);
#endif
    EXPECT_EQ(TextOf(folder / "kept"), "old");
}
