#include "File.h"
#include "TempFolder.h"

#include <windows.h>

using namespace morvane;

TEST(Windows, HiddenFilesAndDevicesCountAsAbsent) {
    const TempFolder folder;
    const std::string path = folder.Write("GAME.PAL", "x");
    for (const DWORD attribute : {FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_SYSTEM, FILE_ATTRIBUTE_READONLY}) {
        ASSERT_TRUE(SetFileAttributesA(path.c_str(), attribute));
        EXPECT_EQ(IsNormalFile(path), attribute == FILE_ATTRIBUTE_READONLY);
        EXPECT_EQ(File::OpenNormal(path).has_value(), attribute == FILE_ATTRIBUTE_READONLY);
    }
    EXPECT_EQ(FailureOf([&] { WriteByteArray(path, {}, true); }).Number, EACCES); // read-only by now
    ASSERT_TRUE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL));         // so that it can be removed
    EXPECT_FALSE(File::OpenNormal("NUL"));
    EXPECT_EQ(FailureOf([] { WriteInPlace("NUL", {}); }).Number, EINVAL);
    for (const char* device : {"NUL", "CON"}) FailureOf([&] { WriteByteArray(folder / device, {}, true); });
}
