#include "File.h"
#include "GameFolder.h"
#include "TempFolder.h"

#include <sys/stat.h>

using namespace morvane;

TEST(Paths, AProgramsPathIsSplitIntoFolderAndName) {
    for (std::string text : {"/viewer|/|viewer", "/a/b.c/v.1.exe|/a/b.c|v.1", "/a/b.c/v|/a/b.c|v",
                             "/a/.viewer|/a|.viewer", "/.v.exe|/|.v", "viewer||", "C:/v.exe|C:/|v"}) {
        std::replace(text.begin(), text.end(), '/', PathSeparator);
        const std::string path = text.substr(0, text.find('|'));
        const Program program = SplitProgramPath(path);
        EXPECT_EQ(path + "|" + program.Folder + "|" + program.BaseName, text);
    }
}

TEST(Files, AreWrittenWholeOrNotAtAll) {
    const ByteVector bytes{1, 2, 3};
    using Writer = void (*)(const std::string&, ConstBytes);
    const Writer exporting = [](const std::string& path, ConstBytes b) { WriteByteArray(path, b, true); };
    for (const Writer write : {Writer(WriteInPlace), exporting}) {
        const TempFolder folder;
        for (const std::string& path : {folder.Write("longer", std::string(1000, 'x')), folder / "new"}) {
            write(path, bytes);
            EXPECT_EQ(TextOf(path), "\1\2\3");
        }
        EXPECT_EQ(FailureOf([&] { write(folder / "no/such", bytes); }).Number, ENOENT);
        EXPECT_TRUE(FailureOf([&] { write(folder.Path, bytes); }).Description.starts_with(folder.Path));
        EXPECT_FALSE(WriteByteArray(folder.Write("kept", "old"), bytes, false));
        EXPECT_EQ(TextOf(folder / "kept"), "old");
    }
}

#ifndef _WIN32
TEST(Files, AreNeitherHiddenNorPipesNorDevices) {
    const TempFolder folder;
    mkfifo((folder / "pipe").c_str(), 0600); // nobody ever writes into it
    for (const std::string& path : {folder.Write(".hidden", "x"), folder / "pipe", std::string("/dev/null")})
        EXPECT_FALSE(IsNormalFile(path) || File::OpenNormal(path)) << path;
    EXPECT_EQ(FailureOf([] { WriteInPlace("/dev/null", {}); }).Number, EINVAL);
}

TEST(Paths, OfSeveralCasesOneIsTaken) {
    const TempFolder folder;
    const GameFolder game{folder.Path, 1};
    std::filesystem::create_directory(folder / "map.1");
    for (const char* name : {"amz.1", "aMz.1", "amZ.1", "amz.11"}) folder.Write(name, "x");
    for (const char* name : {"AMZ.2", "MAP.1", "x/AMZ.1"})
        EXPECT_FALSE(game.FileExists(folder / name)) << name;
    // Each name is written, or else removed. The first in byte order is taken, and then as long as it exists.
    using Step = std::pair<const char*, const char*>;
    for (const auto& [name, taken] : {Step{"Amz.1", "Amz.1"}, Step{"AMz.1", "Amz.1"}, Step{"AMZ.1", "AMZ.1"},
                                      Step{"AMZ.1", "Amz.1"}, Step{"Amz.1", "AMz.1"}}) {
        if (!std::filesystem::remove(folder / name)) folder.Write(name, "x");
        EXPECT_EQ(game.ExistingPath(folder / "AMZ.1"), folder / taken) << name;
    }
}
#endif
