#include "ExportNames.h"
#include "Scene.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <algorithm>
#include <sys/stat.h>

namespace morvane::faults {
namespace {

namespace fs = std::filesystem;

// What becomes of an archive between its listing and its use.
struct Tampering {
    const char* Name;
    void (*Do)(const std::string& path);
    bool Readable; // afterwards there is a file to read
};

void Put(const std::string& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

const Tampering Tamperings[] = {
    {"cut short", [](const std::string& path) { fs::resize_file(path, fs::file_size(path) - 5); }, true},
    {"cut to half", [](const std::string& path) { fs::resize_file(path, fs::file_size(path) / 2); }, true},
    {"cut to nothing", [](const std::string& path) { fs::resize_file(path, 0); }, true},
    {"grown", [](const std::string& path) { Put(path, TextOf(path) + std::string(70'000, 'g')); }, true},
    {"swapped",
     [](const std::string& path) {
         std::string other = TextOf(path);
         std::reverse(other.begin(), other.end());
         Put(path + ".new", other);
         fs::rename(path + ".new", path);
     },
     true},
    {"removed", [](const std::string& path) { fs::remove(path); }, false},
    {"a folder", [](const std::string& path) { fs::remove(path), fs::create_directory(path); }, false},
    {"a pipe", [](const std::string& path) { fs::remove(path), mkfifo(path.c_str(), 0666); }, false},
    {"a link to nothing",
     [](const std::string& path) { fs::remove(path), fs::create_symlink("nothing", path); }, false},
};

// The bytes from a position, zeros where the file has none.
std::string Slice(const std::string& bytes, std::int64_t offset, std::int64_t size) {
    std::string slice(static_cast<std::size_t>(size), '\0');
    for (std::int64_t i = 0; i < size; ++i)
        if (offset + i < static_cast<std::int64_t>(bytes.size()))
            slice[static_cast<std::size_t>(i)] = bytes[static_cast<std::size_t>(offset + i)];
    return slice;
}

// An image file with the same headers and colours, its pixels read from the archive's columns.
std::string ImageFrom(const std::string& archive, const ImageEntry& image, std::string file) {
    const std::size_t stride = (std::size_t{image.Width} + 3) / 4 * 4;
    const std::string columns = Slice(archive, image.DataOffset, std::int64_t{image.Width} * image.Height);
    for (std::size_t x = 0; x < image.Width; ++x)
        for (std::size_t y = 0; y < image.Height; ++y)
            file[1078 + stride * (image.Height - 1 - y) + x] = columns[x * image.Height + y];
    return file;
}

// The state after an action, had the archive that it reads held these bytes. Pictures are left out: what they
// show is told by the cells and the image file.
Snapshot Expected(const Scene& scene, const Action& action, const std::string& archive, Snapshot after) {
    const frmMain& window = scene.Window();
    const std::string reads = action.Reads;
    if (reads == "MAP.1")
        after.Window["cells"] = Slice(
            archive, window.MapDirectory[static_cast<std::size_t>(window.lstMap->ListIndex())].Offset, 8192);
    if (reads == "IMG.1" && !std::string(action.Name).starts_with("ExportAll"))
        after.Window["image file"] =
            ImageFrom(archive,
                      window.Groups[static_cast<std::size_t>(window.lstGroup->SelectedData())]
                          .Images[static_cast<std::size_t>(window.lstImage->ListIndex())],
                      after.Window["image file"]);
    for (auto& [name, bytes] : after.Files) {
        if (reads == "SND.DAT" && name == "old.voc" && action.Name == std::string("ExportSound"))
            bytes = Slice(archive, window.SoundEntries[17].Offset, window.SoundEntries[17].Size);
        if (action.Name == std::string("ExportAllSounds"))
            for (int n = 0; const SoundEntry& entry : window.SoundEntries)
                if (SoundFileName(entry.Kind, n++) == name) bytes = Slice(archive, entry.Offset, entry.Size);
        if (action.Name == std::string("ExportAllImages"))
            for (const int g : {2, 3, 7})
                for (int i = 0; const ImageEntry& image : window.Groups[static_cast<std::size_t>(g)].Images)
                    if (PictureFileName(window.Game, g, i++) == name)
                        bytes = ImageFrom(archive, image, bytes);
    }
    return after;
}

std::string DifferencesOf(Snapshot now, Snapshot expected) {
    for (Snapshot* one : {&now, &expected})
        for (const char* picture : {"picMap", "pic"}) one->Window.erase(picture);
    return Differences(now.Window, expected.Window) + Differences(now.Files, expected.Files);
}

void ExpectBox(Scene& scene, const std::string& text) {
    const Boxes boxes = scene.TakeBoxes();
    std::string texts;
    for (const SeenDialog& box : boxes.Errors) texts += box.Text;
    EXPECT_EQ(texts, text);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(OpenFiles(), 0U);
}

// An action on archives that can be put back as they were.
class Tampered : public testing::TestWithParam<Action> {
  protected:
    void SetUp() override {
        for (const char* name : {"IMG.1", "MAP.1", "SND.DAT"}) Good[name] = TextOf(Play.Test.GameDir / name);
        GetParam().Prepare(Play);
        Before = Play.Take();
        GetParam().Run(Play);
        After = Play.Take();
    }
    void Restore() {
        for (const auto& [name, bytes] : Good) {
            fs::remove_all(Play.Test.GameDir / name);
            Put(Play.Test.GameDir / name, bytes);
        }
        GetParam().Prepare(Play);
        ExpectBox(Play, "");
    }
    static std::string NotFound(const std::string& path) {
        return "Error: 53\nDescription: " + path + " not found.";
    }

    Scene Play;
    std::map<std::string, std::string> Good;
    Snapshot Before, After;
};

class BetweenListingAndUse : public Tampered {};
class WhileExportAllRuns : public Tampered {};

TEST_P(BetweenListingAndUse, GivesTheRightBytesOrOneBox) {
    const Action& action = GetParam();
    for (const Tampering& tampering : Tamperings)
        for (const auto& [name, bytes] : Good) {
            SCOPED_TRACE(name + " " + tampering.Name);
            Restore();
            const std::string path = Play.Test.GameDir / name;
            tampering.Do(path);
            action.Run(Play);
            const bool fails = name == action.Reads && !tampering.Readable;
            ExpectBox(Play, fails ? NotFound(path) : "");
            const Snapshot expected = fails                  ? Before
                                      : name == action.Reads ? Expected(Play, action, TextOf(path), After)
                                                             : After;
            EXPECT_EQ(DifferencesOf(Play.Take(), expected), "");
        }
}

TEST_P(WhileExportAllRuns, GivesTheRightBytesOrOneBox) {
    const Action& action = GetParam();
    for (const Tampering& tampering : Tamperings)
        for (int nth = 1;; ++nth) {
            SCOPED_TRACE(std::string(tampering.Name) + " at write " + std::to_string(nth));
            Restore();
            const std::string path = Play.Test.GameDir / action.Reads;
            Arm(Root(), {"tampering", Write, 0}, nth, [&] { tampering.Do(path); });
            action.Run(Play);
            if (Disarm().empty()) break;
            const Snapshot then = tampering.Readable ? Expected(Play, action, TextOf(path), After) : Before;
            // The files up to the nth are from before, the others from the archive as it is then.
            Snapshot expected = then;
            int written = 0;
            int left = 0;
            for (const auto& [name, bytes] : After.Files) {
                if (bytes == std::string(3000, 'x')) continue;
                if (written == nth)
                    ++left;
                else {
                    expected.Files[name] = bytes;
                    ++written;
                }
            }
            ExpectBox(Play, tampering.Readable || left == 0 ? "" : NotFound(path));
            EXPECT_EQ(DifferencesOf(Play.Take(), expected), "");
        }
}

TEST_P(WhileExportAllRuns, EndsWhenTheTargetFolderIsRemoved) {
    const Action& action = GetParam();
    Restore();
    Arm(Root(), {"removal", Write, 0}, 1, [&] { fs::remove_all(Play.Target.Path); });
    action.Run(Play);
    EXPECT_EQ(Disarm().size(), 1U);
    fs::create_directory(Play.Target.Path);
    const std::string second = action.Reads == std::string("IMG.1") ? "Picture 1-002-02.bmp" : "Song 002.mid";
    ExpectBox(Play, "Error: 2\nDescription: " + (Play.Target / second) + ": No such file or directory");
}

template <typename Condition>
std::vector<Action> ActionsThat(Condition condition) {
    std::vector<Action> actions;
    std::copy_if(Actions.begin(), Actions.end(), std::back_inserter(actions), condition);
    return actions;
}

INSTANTIATE_TEST_SUITE_P(Actions, BetweenListingAndUse,
                         testing::ValuesIn(ActionsThat([](const Action& action) {
                             return action.Reads != nullptr;
                         })),
                         [](const auto& tested) { return std::string(tested.param.Name); });
INSTANTIATE_TEST_SUITE_P(Actions, WhileExportAllRuns, testing::ValuesIn(ActionsThat([](const Action& action) {
                             return std::string(action.Name).starts_with("ExportAll");
                         })),
                         [](const auto& tested) { return std::string(tested.param.Name); });

} // namespace
} // namespace morvane::faults
