#include "File.h"
#include "GameFile.h"
#include "Paths.h"
#include "TempFolder.h"

#include <gtest/gtest.h>

#ifndef NOMINMAX
#define NOMINMAX // some standard libraries have done so
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace morvane {
namespace {

GameFolder GameIn(const TempFolder& folder) { return {folder.Path, 1, "viewer"}; }

TEST(Windows, HiddenAndSystemFilesCountAsAbsent) {
    const TempFolder folder;
    const std::string path = folder.Write("GAME.PAL", "x");
    for (const DWORD attribute : {FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_SYSTEM}) {
        ASSERT_TRUE(SetFileAttributesA(path.c_str(), attribute));
        EXPECT_FALSE(NormalFileExists(path)) << attribute;
        EXPECT_FALSE(File::OpenForReading(path)) << attribute;
        EXPECT_FALSE(FileExists(path)) << attribute;
        const Failure failure = FailureOf([&] { GameFile(GameIn(folder), "GAME.PAL"); });
        EXPECT_EQ(failure.Number, FileNotFoundError);
        EXPECT_EQ(failure.Description, folder.Path + "\\GAME.PAL not found.");
        EXPECT_TRUE(AnyFileExists(path)) << attribute; // an export must not write over it unasked
    }
    ASSERT_TRUE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE));
    EXPECT_TRUE(NormalFileExists(path));
    EXPECT_TRUE(File::OpenForReading(path));
    EXPECT_TRUE(FileExists(path));
    ASSERT_TRUE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL)); // so that it can be removed
}

TEST(Windows, AnotherCaseOfANameIsTheSameFile) {
    const TempFolder folder;
    folder.Write("img.1", ByteVector{7});
    EXPECT_EQ(FindInAnyCase(folder / "IMG.1"), folder / "IMG.1");
    EXPECT_EQ(GameFile(GameIn(folder), "IMG.%EP%").Byte(0), 7);
    EXPECT_TRUE(DeleteFileIfAny(folder / "Img.1"));
    EXPECT_EQ(FindInAnyCase(folder / "img.1"), "");
    EXPECT_EQ(FindInAnyCase(folder / "missing\\MAP.1"), "");
}

TEST(Windows, DevicesAreNoFilesToRead) {
    EXPECT_FALSE(File::OpenForReading("NUL"));
    const ByteVector bytes{1};
    EXPECT_EQ(FailureOf([&] { WriteFile("NUL", bytes); }).Number, EINVAL);
}

TEST(Windows, TheProgramKnowsItsNameAndFolder) {
    const Program program = RunningProgram();
    EXPECT_EQ(program.BaseName, "core_tests");
    EXPECT_TRUE(NormalFileExists(program.Folder + "\\core_tests.exe")) << program.Folder;
}

} // namespace
} // namespace morvane
