#include "Failure.h"
#include "File.h"
#include "Paths.h"
#include "TempFolder.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace morvane {
namespace {

TEST(Paths, NormalFilesAreNeitherFoldersNorHiddenNorPipes) {
    const TempFolder folder;
    EXPECT_TRUE(NormalFileExists(folder.Write("seen", "x")));
    EXPECT_FALSE(NormalFileExists(folder.Path));
    EXPECT_FALSE(NormalFileExists(folder / "missing"));
    EXPECT_FALSE(NormalFileExists(""));
#ifndef _WIN32
    EXPECT_FALSE(NormalFileExists(folder.Write(".hidden", "x")));
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(NormalFileExists(pipe));
    EXPECT_FALSE(File::OpenForReading(pipe)); // and does not wait for a writer
    std::filesystem::create_symlink(folder / "seen", folder / "link");
    EXPECT_TRUE(NormalFileExists(folder / "link"));
#endif
}

#ifndef _WIN32
TEST(Paths, FindsAnotherCaseOnlyWhenTheExactNameIsMissing) {
    const TempFolder folder;
    folder.Write("img.1", "lower");
    folder.Write("Img.1", "mixed");
    EXPECT_EQ(FindInAnyCase(folder / "IMG.1"), folder / "Img.1"); // the first in byte order
    folder.Write("IMG.1", "exact");
    EXPECT_EQ(FindInAnyCase(folder / "IMG.1"), folder / "IMG.1");
    EXPECT_EQ(FindInAnyCase(folder / "IMG.2"), "");
    std::filesystem::create_directory(folder / "map.1");
    EXPECT_EQ(FindInAnyCase(folder / "MAP.1"), "");
    EXPECT_EQ(FindInAnyCase("/missing folder/MAP.1"), "");
}
#endif

TEST(Files, ReplacedContentIsExactlyAsLongAsTheNewBytes) {
    const TempFolder folder;
    const std::string path = folder.Write("file", std::string(1000, 'x'));
    const ByteVector bytes{1, 2, 3};
    ReplaceContent(path, bytes);
    EXPECT_EQ(BytesOf(path), bytes);
    ReplaceContent(folder / "new", bytes);
    EXPECT_EQ(BytesOf(folder / "new"), bytes);
}

TEST(Files, FailuresCarryThePlatformsNumberAndThePath) {
    const TempFolder folder;
    const ByteVector bytes{1};
    struct Case {
        std::string Path;
        int Number;
    };
    std::vector<Case> cases{{folder / "no/such", ENOENT}};
#ifdef _WIN32
    cases.push_back({folder.Path, EACCES});
#else
    cases.push_back({folder.Path, EISDIR});
    cases.push_back({folder / "pipe", ENXIO});
    ASSERT_EQ(mkfifo(cases.back().Path.c_str(), 0600), 0);
#endif
    for (const Case& c : cases) {
        for (auto* write : {WriteFile, ReplaceContent}) {
            const Failure failure = FailureOf([&] { write(c.Path, bytes); });
            EXPECT_EQ(failure.Number, c.Number) << c.Path;
            EXPECT_TRUE(failure.Description.starts_with(c.Path + ": ")) << failure.Description;
        }
    }
}

TEST(Files, DeletingCountsLinksButNoFolders) {
    const TempFolder folder;
#ifdef _WIN32
    folder.Write("link", "no link, but as good here");
#else
    std::filesystem::create_symlink(folder / "nowhere", folder / "link");
#endif
    EXPECT_TRUE(DeleteFileIfAny(folder / "link"));
    EXPECT_FALSE(DeleteFileIfAny(folder / "link"));
    std::filesystem::create_directory(folder / "sub");
    EXPECT_FALSE(DeleteFileIfAny(folder / "sub"));
    EXPECT_TRUE(std::filesystem::exists(folder / "sub"));
}

} // namespace
} // namespace morvane
