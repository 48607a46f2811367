#include "File.h"
#include "GameFile.h"
#include "TempFolder.h"

#ifndef NOMINMAX
#define NOMINMAX // some standard libraries have done so
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

using namespace morvane;

TEST(Windows, HiddenAndSystemFilesCountAsAbsent) {
    const TempFolder folder;
    const std::string path = folder.Write("GAME.PAL", "x");
    for (const DWORD attribute : {FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_SYSTEM, FILE_ATTRIBUTE_READONLY}) {
        const bool normal = attribute == FILE_ATTRIBUTE_READONLY;
        ASSERT_TRUE(SetFileAttributesA(path.c_str(), attribute));
        EXPECT_EQ(IsNormalFile(path), normal);
        EXPECT_EQ(File::OpenNormal(path).has_value(), normal);
        EXPECT_FALSE(WriteByteArray(path, {}, false)); // an export must not write over it unasked
    }
    ASSERT_TRUE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL)); // so that it can be removed
}

TEST(Windows, AnotherCaseOfANameIsTheSameFile) {
    const TempFolder folder;
    folder.Write("img.1", "x");
    const GameFolder game{folder.Path, 1};
    EXPECT_EQ(game.ExistingPath(folder / "IMG.1"), folder / "IMG.1");
    EXPECT_NO_THROW(GameFile(game, "IMG.%EP%"));
    EXPECT_FALSE(game.FileExists(folder / "missing\\MAP.1"));
}

TEST(Windows, DevicesAreNoFiles) {
    EXPECT_FALSE(File::OpenNormal("NUL"));
    EXPECT_EQ(FailureOf([] { WriteInPlace("NUL", {}); }).Number, EINVAL);
}
