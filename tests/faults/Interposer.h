#pragma once

#include <functional>
#include <string>
#include <vector>

/// Stands between the program and the platform's file calls (the linker wraps them) and lets calls fail when
/// a test asks for it.
namespace morvane::faults {

/// The calls that the program makes for its files, as bits; an open that may make a file is Open and Create.
enum Call : unsigned {
    Open = 1,
    Create = 2,
    Stat = 4,
    Read = 8,
    Write = 16,
    Truncate = 32,
    Close = 64,
    Unlink = 128,
    AnyCall = 255
};

/// A kind of fault.
struct Kind {
    const char* Name;
    unsigned Calls;     ///< the calls it befalls
    int Error;          ///< the number that they fail with; a failing close closes nevertheless
    bool Half = false;  ///< the first one moves half of the bytes, at least one, and does not fail
    bool Lasts = false; ///< it befalls every such call from the first on
};

/// Lets the nth call (from 1) of a kind fail, counted over files whose path begins with root. With a hook
/// nothing fails: it runs just before that call.
void Arm(const std::string& root, const Kind& kind, int nth, std::function<void()> hook = {});

/// Ends that; the paths of the files whose calls were hit.
std::vector<std::string> Disarm();

} // namespace morvane::faults
