// Every call for one of the program's own files fails once, in turn, in each of a user's actions: the linker
// leads these calls to the functions below, which let them fail.

#include "TestWindow.h"

#include <cerrno>
#include <fcntl.h>
#include <span>
#include <string_view>
#include <sys/stat.h>

namespace morvane {
namespace {

/// The calls, as bits. One that may make a file is Open and Create; Close is of a file that was written.
constexpr unsigned Open = 1, Create = 2, Stat = 4, Read = 8, Write = 16, Truncate = 32, Close = 64,
                   Unlink = 128, CloseRead = 256;
constexpr unsigned AnyCall = 511;
constexpr unsigned Writing = Create | Write | Truncate | Close | Unlink;

enum How { Once, Half, Lasts }; // Half moves half of the bytes and does not fail; Lasts fails ever after

struct Kind {
    const char* Name;
    unsigned Calls;
    int Error; // what they fail with; a failing close closes nevertheless
    How Fails;
    bool Reported = false; // nobody may pass over it
};
constexpr Kind Kinds[] = {{"EIO", AnyCall, EIO, Once},
                          {"ENOSPC", Writing, ENOSPC, Once, true},
                          {"ENOSPC from then on", Writing, ENOSPC, Lasts, true},
                          {"EIO from then on", AnyCall & ~Stat, EIO, Lasts},
                          {"EACCES", Open | Stat | Unlink, EACCES, Once},
                          {"ENOENT", Open | Stat, ENOENT, Once},
                          {"EINTR", AnyCall, EINTR, Once},
                          {"short", Read | Write, 0, Half}};

const std::string Root = (fs::temp_directory_path() / "morvane-").string(); // how all paths of a test begin
Kind Armed{};
int Nth = 0; // of the calls armed, the one to fail; 0: none
int Count = 0;
std::vector<std::string> Hits;
std::map<int, std::pair<std::string, bool>> Files; // those open: path, and whether to be written

bool Hit(unsigned call, std::string_view path) {
    if (Nth == 0 || (Armed.Calls & call) == 0 || !path.starts_with(Root)) return false;
    ++Count;
    if (Count < Nth || (Count > Nth && Armed.Fails != Lasts)) return false;
    Hits.emplace_back(path);
    errno = Armed.Error;
    return true;
}
bool Hit(unsigned call, int descriptor) {
    return Files.contains(descriptor) && Hit(call, Files[descriptor].first);
}

template <typename Move, typename Pointer>
ssize_t Moved(unsigned call, Move move, int descriptor, Pointer bytes, std::size_t count, off_t position) {
    if (!Hit(call, descriptor)) return move(descriptor, bytes, count, position);
    return Armed.Fails == Half ? move(descriptor, bytes, (count + 1) / 2, position) : -1;
}

} // namespace

// NOLINTBEGIN: the names are the linker's
extern "C" {
int __real_open(const char* path, int flags, ...);
int __real_stat(const char* path, struct stat* status);
int __real_fstat(int descriptor, struct stat* status);
ssize_t __real_pread(int descriptor, void* bytes, std::size_t count, off_t position);
ssize_t __real_pwrite(int descriptor, const void* bytes, std::size_t count, off_t position);
int __real_ftruncate(int descriptor, off_t length);
int __real_close(int descriptor);
int __real_unlink(const char* path);

int __wrap_open(const char* path, int flags, mode_t mode) {
    if (Hit((flags & O_CREAT) != 0 ? Open | Create : Open, path)) return -1;
    const int descriptor = __real_open(path, flags, mode);
    if (descriptor >= 0) Files[descriptor] = {path, (flags & O_CREAT) != 0};
    return descriptor;
}
int __wrap_stat(const char* path, struct stat* status) {
    return Hit(Stat, path) ? -1 : __real_stat(path, status);
}
int __wrap_fstat(int descriptor, struct stat* status) {
    return Hit(Stat, descriptor) ? -1 : __real_fstat(descriptor, status);
}
ssize_t __wrap_pread(int descriptor, void* bytes, std::size_t count, off_t position) {
    return Moved(Read, __real_pread, descriptor, bytes, count, position);
}
ssize_t __wrap_pwrite(int descriptor, const void* bytes, std::size_t count, off_t position) {
    return Moved(Write, __real_pwrite, descriptor, bytes, count, position);
}
int __wrap_ftruncate(int descriptor, off_t length) {
    return Hit(Truncate, descriptor) ? -1 : __real_ftruncate(descriptor, length);
}
int __wrap_close(int descriptor) {
    const bool fails = Hit(Files[descriptor].second ? Close : CloseRead, descriptor);
    Files.erase(descriptor);
    const int result = __real_close(descriptor);
    if (fails) errno = Armed.Error;
    return fails ? -1 : result;
}
int __wrap_unlink(const char* path) { return Hit(Unlink, path) ? -1 : __real_unlink(path); }
}
// NOLINTEND

namespace {

const TempFolder Target, Other; // for exports; another game

struct Action {
    const char* Name;
    bool Reloads;        // a failure may leave the window empty, so it is tried on a new one
    std::string Prepare; // leads to the same state whatever happened before
    std::string Do;
    QList<std::string> Answers = {};
    std::size_t KindsTried = std::size(Kinds); // fewer where another action makes the same calls
};

[[maybe_unused]] void PrintTo(const Action& action, std::ostream* out) { *out << action.Name; }

const Action Actions[] = {{"StartUp", true, "Sounds", "start"},
                          {"OpenFolder", true, "Walls/Sprites", "Open", {Other.Path}, 2},
                          {"ChooseEpisode", true, "Walls/Sprites", "Episode 2"},
                          {"SelectMap", false, "Maps, Map 0", "Map 1"},
                          {"SelectGroup", false, "Walls/Sprites, Group 2, image 1", "Group 7"},
                          {"SelectImage", false, "Walls/Sprites, Group 2, image 1", "image 2"},
                          {"ExportImage", false, "Walls/Sprites", "Export", {Target / "new.bmp"}},
                          {"ExportSound", false, "Sounds, VOC 17", "Export", {Target / "old.voc", "yes"}},
                          {"ExportAllImages", false, "Walls/Sprites", "Export All", {Target.Path}, 2},
                          {"ExportAllSounds", false, "Sounds", "Export All", {Target.Path}, 2}};

struct EveryCallFailsOnce : TestWindow, testing::WithParamInterface<Action> {
    EveryCallFailsOnce() {
        OtherGame.Groups[5] = SampleGame::MakeGroup(5, 4);
        OtherGame.Maps.resize(2);
        OtherGame.Write(Other);
        fs::rename(Other / "MAP.1", Other / "map.1");
        Game.Write(GameDir);
        Start(GameDir.Path);
    }

    std::string StartOnGame() {
        Sample = Game;
        return Start(GameDir.Path);
    }

    void Prepare() {
        for (const auto& [name, content] : Target.Files()) fs::remove(Target / name);
        for (const char* name : {"A file of the user", "Picture 1-002-02.bmp", "Song 002.mid", "old.voc"})
            Target.Write(name, std::string(3000, 'x'));
        if (GetParam().Reloads) StartOnGame();
        Do(GetParam().Prepare);
    }

    std::string Act() {
        if (GetParam().Do == "start") return StartOnGame();
        if (GetParam().Do == "Open") Sample = OtherGame;
        return Do(GetParam().Do, GetParam().Answers);
    }

    /// What an action may change.
    Contents Take() {
        Contents all = Screen();
        all["settings"] = Settings();
        for (const auto& [name, content] : Target.Files()) all["file " + name] = content;
        return all;
    }

    [[nodiscard]] auto Errors() const { return Told.count("\nerror "); }
    [[nodiscard]] QString ErrorText() const { return Told.section("\nerror ", 1); }
    [[nodiscard]] bool SettingsNotSaved() const { return Told.contains("Could not save INI file."); }

    // The rules for an action of which a call has failed.

    void NothingIsMixedOrLeftOpen() const {
        EXPECT_EQ(Told.toStdString(), Told.section("but ", 0, 0).toStdString());
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        EXPECT_TRUE(Files.empty());
    }

    void WithoutAnErrorEverythingIsDone() const {
        EXPECT_FALSE(Armed.Reported && !Hits.empty());
        EXPECT_EQ(Differences(Now, Unfailed), "");
    }

    void AnErrorIsToldOnceAndNamesAFileThatFailed() const {
        EXPECT_FALSE(Armed.Error == EINTR || Armed.Fails == Half) << "which are no errors";
        const bool settingsNotRead = Told.contains("viewer.ini") && !SettingsNotSaved();
        EXPECT_LE(Errors(), settingsNotRead && Armed.Fails == Lasts ? 2 : 1);
        EXPECT_TRUE(std::ranges::any_of(Hits, [&](const std::string& path) {
            return ErrorText().contains(fs::path(path).filename().c_str(), Qt::CaseInsensitive);
        }));
    }

    void TheWindowIsEmptyOrShowsWhatItDid() {
        EXPECT_TRUE(IsOpen() || (GetParam().Reloads && !SettingsNotSaved()));
        if (!IsOpen()) return;
        Contents& wanted = Told.contains("viewer.ini") ? Unfailed : Before;
        for (const auto& [part, shown] : Screen()) EXPECT_EQ(shown, wanted[part]) << part;
    }

    void TheSettingsAreTheOldOnesOrBeginWithTheNew() {
        const std::string &settings = Now["settings"], &wanted = Unfailed["settings"];
        std::string begun = Before["settings"];
        const auto same = std::ranges::mismatch(settings, wanted).in1 - settings.begin();
        const auto written = static_cast<std::size_t>(same);
        if (SettingsNotSaved()) begun.replace(0, written, wanted, 0, written);
        EXPECT_TRUE(settings == begun || (SettingsNotSaved() && settings == wanted)) << settings;
    }

    void ExportsAreNewOrUntouchedExceptTheOneNamed() {
        Contents now = Now, before = Before, done = Unfailed;
        for (const auto& [name, content] : before) now.try_emplace(name); // what is gone counts as empty
        for (const auto& [name, content] : now) {
            const bool named = ErrorText().contains((Target / name.substr(name.find(' ') + 1)).c_str());
            const bool whole = content == before[name] || content == done[name];
            EXPECT_TRUE(!name.starts_with("file ") || named || whole) << name;
        }
    }

    void ExportsAreThoseOfTheGameInForce() {
        if (State().starts_with("Maps")) Do("Walls/Sprites");
        EXPECT_EQ(WrongExports(), "");
    }

    void TheSameActionWorksOnceTheDiskDoes(const std::string& toldOfOld) {
        Prepare();
        EXPECT_EQ(Act(), toldOfOld);
        EXPECT_EQ(Differences(Take(), Unfailed), "");
    }

    SampleGame Game = Sample, OtherGame = Sample;
    Contents Before, Unfailed, Now; // ahead of the action, after it without a failure, and after one
    QString Told;                   // what was seen after it
};

TEST_P(EveryCallFailsOnce, AndTheProgramGoesOn) {
    Prepare();
    Before = Take();
    const std::string seen = Act();
    EXPECT_EQ(seen.find("error"), std::string::npos) << seen;
    Unfailed = Take();
    EXPECT_NE(Differences(Unfailed, Before), "") << "the action changed nothing";
    int tried = 0;
    for (const Kind& kind : std::span(Kinds).first(GetParam().KindsTried))
        for (int nth = 1; !HasFailure(); ++nth) {
            Prepare();
            ASSERT_EQ(Differences(Take(), Before), "");
            Armed = kind;
            Hits.clear();
            Count = 0;
            Nth = nth;
            Told = Act().c_str();
            Nth = 0;
            if (Hits.empty()) break;
            SCOPED_TRACE(testing::Message() << kind.Name << ", call " << nth << ": " << Told.toStdString());
            Now = Take();
            NothingIsMixedOrLeftOpen();
            if (Errors() == 0) {
                WithoutAnErrorEverythingIsDone();
            } else {
                AnErrorIsToldOnceAndNamesAFileThatFailed();
                TheWindowIsEmptyOrShowsWhatItDid();
                TheSettingsAreTheOldOnesOrBeginWithTheNew();
                ExportsAreNewOrUntouchedExceptTheOneNamed();
            }
            ExportsAreThoseOfTheGameInForce();
            TheSameActionWorksOnceTheDiskDoes(seen);
            ++tried;
        }
    EXPECT_GT(tried, 10);
}

TEST_F(TestWindow, KnowsWhatItReadOfTheSettingsBeforeAFailure) {
    Sample.Write(GameDir);
    Armed = {"EIO", Read, EIO, Once};
    Nth = 2;
    const std::string seen = Start(GameDir.Path + "\r\n;" + std::string(70000, 'x'));
    Nth = 0;
    EXPECT_EQ(seen.find("Maps, episodes 1* 2 3\nerror without an owner"), 0U) << seen;
}

INSTANTIATE_TEST_SUITE_P(Actions, EveryCallFailsOnce, testing::ValuesIn(Actions),
                         [](const auto& tested) { return std::string(tested.param.Name); });

} // namespace
} // namespace morvane
