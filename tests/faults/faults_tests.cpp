// Every call for one of the program's own files fails once, in turn, in each of a user's actions: the linker
// leads these calls to the functions below, which let them fail.

#include "TestWindow.h"

#include <cerrno>
#include <fcntl.h>
#include <iostream>
#include <span>
#include <string_view>
#include <sys/stat.h>

namespace morvane {
namespace {

// The calls, as bits. One that may make a file is Open and Create; Close is of a file that was written.
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

struct Action {
    const char* Name;
    std::vector<std::string> Prepare; // leads to the same state whatever happened before
    std::string Do;
    std::vector<const char*> Answers = {}; // paths begin in the target folder
    bool Empties = false;                  // a failure ends as a failed open, else as if nothing had happened
    std::size_t KindsTried = std::size(Kinds); // fewer where another action makes the same calls
};

const Action Actions[] = {{"StartUp", {"start", "Ctrl+D"}, "start", {}, true},
                          {"OpenFolder", {"start", "Ctrl+W"}, "Ctrl+O", {"other"}, true, 2},
                          {"ChooseEpisode", {"start", "Ctrl+W"}, "Ctrl+Shift+F2", {}, true},
                          {"SelectMap", {"Ctrl+M", "lstMap 0"}, "lstMap 1"},
                          {"SelectGroup", {"Ctrl+W", "lstGroup 0", "lstImage 1"}, "lstGroup 2"},
                          {"SelectImage", {"Ctrl+W", "lstGroup 0", "lstImage 1"}, "lstImage 2"},
                          {"ExportImage", {"Ctrl+W"}, "mnuFileExport", {"new.bmp"}},
                          {"ExportSound", {"Ctrl+D", "lstSound 2"}, "mnuFileExport", {"old.voc", "yes"}},
                          {"ExportAllImages", {"Ctrl+W"}, "mnuFileExportAll", {""}, false, 2},
                          {"ExportAllSounds", {"Ctrl+D"}, "mnuFileExportAll", {""}, false, 2}};

struct EveryCallFailsOnce : TestWindow, testing::WithParamInterface<Action> {
    EveryCallFailsOnce() {
        OtherGame.Groups[5] = SampleGame::MakeGroup(5, 4);
        OtherGame.Maps.resize(2);
        OtherGame.Write(Other);
        fs::rename(Other / "MAP.1", Other / "map.1");
        Game.Write(GameDir);
        Start(GameDir.Path);
    }

    std::string Step(const std::string& action, const QList<std::string>& answers = {}) {
        if (action == "Ctrl+O") Sample = OtherGame;
        if (action != "start") return Do(action, answers);
        Sample = Game;
        Start(GameDir.Path);
        return State() + TakeSeen() + Mixed();
    }

    Parts PrepareAndTake() {
        for (const auto& [name, bytes] : FilesIn(Target.Path)) fs::remove(Target / name);
        for (const char* name : {"A file of the user", "Picture 1-002-02.bmp", "Song 002.mid", "old.voc"})
            Target.Write(name, std::string(3000, 'x'));
        for (const std::string& action : GetParam().Prepare) Step(action);
        TakeSeen();
        return Take();
    }

    std::string Run() {
        QList<std::string> answers;
        for (const std::string answer : GetParam().Answers)
            answers.push_back(answer == "other" ? Other.Path : answer == "yes" ? answer : Target / answer);
        return Step(GetParam().Do, answers);
    }

    Parts Take() {
        Parts parts = Screen();
        parts["settings"] = Settings();
        for (const auto& [name, bytes] : FilesIn(Target.Path))
            parts["file " + name].assign(bytes.begin(), bytes.end());
        return parts;
    }

    // Checks what must hold after an action of which some calls have failed.
    void Check(const std::string& done, Parts before, Parts after) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        EXPECT_TRUE(Files.empty());
        EXPECT_EQ(done.find("MIXED"), std::string::npos);
        Parts now = Take();
        const auto boxes = QString(done.c_str()).count("\n!");
        if (boxes == 0) {
            EXPECT_FALSE(Armed.Reported && !Hits.empty());
            EXPECT_EQ(Differences(now, after), "");
            return;
        }
        const bool saving = done.find("Could not save") != std::string::npos;
        const bool settings = done.find("viewer.ini") != std::string::npos;
        EXPECT_LE(boxes, settings && !saving && Armed.Fails == Lasts ? 2 : 1);
        EXPECT_FALSE(Armed.Error == EINTR || Armed.Fails == Half);
        EXPECT_TRUE(std::ranges::any_of(Hits, [&](const std::string& path) {
            return QString(done.c_str()).contains(fs::path(path).filename().c_str(), Qt::CaseInsensitive);
        }));
        const bool emptied = now["state"].find('V') == std::string::npos;
        EXPECT_FALSE(emptied && (saving || !GetParam().Empties));
        bool stopped = false; // files are written one after the other
        Parts names = now;
        names.insert(before.begin(), before.end());
        names.insert(after.begin(), after.end());
        for (const auto& [name, bytes] : names) {
            if (name == "settings" && saving) { // from its start on, the new content may stand over the old
                std::size_t same = 0;
                while (same < now[name].size() && now[name][same] == after[name][same]) ++same;
                EXPECT_TRUE(same == after[name].size() ||
                            now[name] == after[name].substr(0, same) +
                                             before[name].substr(std::min(same, before[name].size())))
                    << now[name];
            } else if (name.starts_with("file ")) {
                const bool named = done.find(Target / name.substr(5)) != std::string::npos;
                stopped = stopped || named || now[name] != after[name];
                EXPECT_TRUE(!stopped || named || now[name] == before[name]) << name;
            } else if (!emptied || name == "settings") {
                EXPECT_EQ(now[name], (settings && name != "settings" ? after : before)[name]) << name;
            }
        }
    }

    TempFolder Target, Other;
    SampleGame Game = Sample, OtherGame = Sample;
};

TEST_P(EveryCallFailsOnce, AndTheProgramGoesOn) {
    const Action& action = GetParam();
    const Parts before = PrepareAndTake();
    const std::string unfailed = Run();
    EXPECT_EQ(unfailed.find('!'), std::string::npos) << unfailed;
    const Parts after = Take();
    EXPECT_NE(Differences(before, after), "");
    int tried = 0;
    for (const Kind& kind : std::span(Kinds).first(action.KindsTried))
        for (int nth = 1; !HasFailure(); ++nth) {
            ASSERT_EQ(Differences(PrepareAndTake(), before), "");
            Armed = kind;
            Hits.clear();
            Count = 0;
            Nth = nth;
            const std::string done = Run();
            Nth = 0;
            SCOPED_TRACE(std::string(kind.Name) + ", call " + std::to_string(nth) + ": " + done);
            Check(done, before, after);
            if (Hits.empty()) break;
            if (++tried % 5 != 0) continue;
            EXPECT_EQ(WrongExports(), "");
            PrepareAndTake();
            EXPECT_EQ(Run(), unfailed);
            EXPECT_EQ(Differences(Take(), after), "");
        }
    std::cout << tried << " faults\n";
}

INSTANTIATE_TEST_SUITE_P(Actions, EveryCallFailsOnce, testing::ValuesIn(Actions),
                         [](const auto& tested) { return std::string(tested.param.Name); });

} // namespace
} // namespace morvane
