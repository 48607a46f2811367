#pragma once

#include "Interposer.h"
#include "SaveScript.h"

#include <map>
#include <string>
#include <vector>

namespace morvane::faults {

/// Everything of the program that a user can come to see.
struct Snapshot {
    using Part = std::map<std::string, std::string>;

    Part Window; ///< widgets and what they show, by name; nothing while there is no window
    Part Files;  ///< the exported files' bytes, by name
    std::string Settings;
};

/// The names under which two parts differ.
std::string Differences(const Snapshot::Part& a, const Snapshot::Part& b);

/// The boxes of one action.
struct Boxes {
    std::vector<SeenDialog> Errors; ///< of failures
    int Done = 0;                   ///< of finished exports
};

/// The real window between two games and a target folder that already holds some files.
struct Scene {
    Scene();

    [[nodiscard]] frmMain& Window() const { return *Test.Window; }
    [[nodiscard]] Snapshot Take() const;
    Boxes TakeBoxes();
    void ShowImage(int group, int image); ///< in the Walls/Sprites view
    void FillTarget() const;

    TestWindow Test;
    SaveScript Script{Test};
    TempFolder Other; ///< a second game, one of whose files is named in lower case
    TempFolder Target;
};

/// What all paths of a scene begin with, and those of no other files.
std::string Root();
/// How many files of a scene are open, as the platform counts them.
std::size_t OpenFiles();

/// Something a user does.
struct Action {
    const char* Name;
    void (*Prepare)(Scene& scene); ///< leads to the same state whatever happened before
    void (*Run)(Scene& scene);
    /// What the window's state begins with after a failure; nullptr when a failure changes nothing.
    const char* FailedState = nullptr;
    /// The game file that it reads by the directory read before; nullptr when it reads the directory too.
    const char* Reads = nullptr;
};

extern const std::vector<Action> Actions;

} // namespace morvane::faults
