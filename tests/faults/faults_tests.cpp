#include "Scene.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <iostream>
#include <set>

namespace morvane::faults {
namespace {

const Kind Kinds[] = {
    {"EIO", AnyCall, EIO},
    {"EACCES", Open | Stat | Unlink, EACCES},
    {"ENOENT", Open | Stat | Unlink, ENOENT},
    {"ENOSPC", Create | Write | Truncate | Close, ENOSPC},
    {"EINTR", AnyCall, EINTR},
    {"short", Read | Write, 0, true},
    {"EIO from then on", AnyCall & ~Stat, EIO, false, true}, // what can still be looked up cannot be read
    {"ENOSPC from then on", Create | Write | Truncate | Close, ENOSPC, false, true},
    {"half a write, then ENOSPC", Write, ENOSPC, true, true},
};

bool Continued(const Kind& kind) { return kind.Error == EINTR || kind.Error == 0; }

// True when a text, whatever the case of its letters, holds the path of one of the files.
bool NamesOneOf(const std::string& text, const std::vector<std::string>& paths) {
    const auto lower = [](std::string bytes) {
        for (char& c : bytes) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        return bytes;
    };
    return std::any_of(paths.begin(), paths.end(), [&](const std::string& path) {
        return lower(text).find(lower(path)) != std::string::npos;
    });
}

// Files are written one after the other: up to a place they are the new ones, then comes perhaps the one that
// the box is about, and from there on nothing has changed.
std::string WronglyWritten(const Scene& scene, const std::string& box, const Snapshot& now,
                           const Snapshot& before, const Snapshot& after) {
    const auto file = [](const Snapshot& from, const std::string& name) {
        const auto found = from.Files.find(name);
        return found == from.Files.end() ? "none" : found->second;
    };
    std::set<std::string> names;
    for (const Snapshot* one : {&now, &before, &after})
        for (const auto& [name, bytes] : one->Files) names.insert(name);
    std::string wrong;
    bool stopped = false;
    for (const std::string& name : names) {
        const bool failed = box.find(scene.Target / name) != std::string::npos;
        stopped = stopped || failed || file(now, name) != file(after, name);
        if (!failed && stopped && file(now, name) != file(before, name)) wrong += name + ", ";
    }
    return wrong;
}

// A failed save may have come to any place, writing over the old content from its start.
bool WrittenOver(const std::string& now, const std::string& old, const std::string& fresh) {
    for (std::size_t done = 0; done <= fresh.size(); ++done)
        if (now == fresh.substr(0, done) + old.substr(std::min(done, old.size()))) return true;
    return now == fresh;
}

// What is wrong after an action of which some calls have failed; empty when all is well.
std::string Complaints(Scene& scene, const Action& action, const Kind& kind,
                       const std::vector<std::string>& hit, const Snapshot& before, const Snapshot& after) {
    std::string wrong;
    const auto expect = [&](bool holds, const std::string& what) {
        if (!holds) wrong += what + "\n";
    };
    const Boxes boxes = scene.TakeBoxes();
    const Snapshot now = scene.Take();
    expect(QApplication::overrideCursor() == nullptr, "the pointer is busy");
    expect(OpenFiles() == 0, "a file is still open");
    expect(boxes.Done == (boxes.Errors.empty() && std::string(action.Name).starts_with("ExportAll") ? 1 : 0),
           "Done");
    if (boxes.Errors.empty()) {
        expect(now.Window.empty() || Differences(now.Window, after.Window).empty(),
               "silently different: " + Differences(now.Window, after.Window));
        expect(now.Settings == after.Settings, "silently different settings: " + now.Settings);
        expect(Differences(now.Files, after.Files).empty(),
               "silently different files: " + Differences(now.Files, after.Files));
        return wrong;
    }
    const SeenDialog& box = boxes.Errors.front();
    const bool saving = box.Title == "Could not save INI file.";
    // Settings whose last read fails have been read, and the folder that they remember is opened.
    const bool reading = !saving && NamesOneOf(box.Text, {scene.Test.SettingsPath()});
    expect(boxes.Errors.size() <= (reading && kind.Lasts ? 2U : 1U), "too many boxes");
    expect(!Continued(kind), "not continued: " + box.Text);
    expect(saving || !box.Busy, "a box under the busy pointer");
    expect(NamesOneOf(box.Text, hit), "another file is named: " + box.Text);
    if (saving || (reading && now.Window.at("state") == after.Window.at("state")))
        expect(Differences(now.Window, after.Window).empty(), "the game is not open");
    else if (action.FailedState != nullptr)
        expect(now.Window.at("state").starts_with(action.FailedState), now.Window.at("state"));
    else
        expect(Differences(now.Window, before.Window).empty(),
               "changed: " + Differences(now.Window, before.Window));
    expect(saving ? WrittenOver(now.Settings, before.Settings, after.Settings)
                  : now.Settings == before.Settings,
           "settings: " + now.Settings);
    const std::string files = WronglyWritten(scene, box.Text, now, before, after);
    expect(files.empty(), "wrongly written: " + files);
    return wrong;
}

class EveryCallFailsOnce : public testing::TestWithParam<Action> {
  protected:
    static void TearDownTestSuite() {
        std::cout << "faults: " << Tried << " tried, " << Survived << " survived\n";
    }
    static inline int Tried = 0;
    static inline int Survived = 0;
};

TEST_P(EveryCallFailsOnce, AndTheProgramGoesOn) {
    const Action& action = GetParam();
    Scene scene;
    action.Prepare(scene);
    const Snapshot before = scene.Take();
    action.Run(scene);
    const Snapshot after = scene.Take();
    ASSERT_TRUE(scene.TakeBoxes().Errors.empty());
    ASSERT_FALSE(before.Settings == after.Settings && Differences(before.Window, after.Window).empty() &&
                 Differences(before.Files, after.Files).empty());
    int tried = 0;
    int survived = 0;
    for (const Kind& kind : Kinds)
        for (int nth = 1;; ++nth) {
            action.Prepare(scene);
            scene.TakeBoxes();
            const Snapshot prepared = scene.Take();
            ASSERT_EQ(Differences(prepared.Window, before.Window) + Differences(prepared.Files, before.Files),
                      "");
            Arm(Root(), kind, nth);
            action.Run(scene);
            const std::vector<std::string> hit = Disarm();
            std::string complaints = Complaints(scene, action, kind, hit, before, after);
            if (hit.empty()) {
                EXPECT_EQ(complaints, "") << kind.Name << ", unfailed";
                break;
            }
            action.Run(scene);
            complaints += Complaints(scene, action, {"again", 0, 0}, {}, before, after);
            EXPECT_EQ(complaints, "") << kind.Name << ", call " << nth << ": " << hit.front();
            ++tried;
            survived += complaints.empty() ? 1 : 0;
        }
    EXPECT_GT(tried, 0);
    std::cout << action.Name << ": " << tried << " faults tried, " << survived << " survived\n";
    Tried += tried;
    Survived += survived;
}

INSTANTIATE_TEST_SUITE_P(Actions, EveryCallFailsOnce, testing::ValuesIn(Actions),
                         [](const auto& tested) { return std::string(tested.param.Name); });

} // namespace
} // namespace morvane::faults
