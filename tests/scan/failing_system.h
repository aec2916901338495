#pragma once

#include <atomic>
#include <optional>
#include <string>

namespace bracken::test {

// Lets one system call of this program fail while it lives: the `nth`, counted from 1, of those of
// that name that are made on what lies at or below a folder, and with `lasting` all later ones too.
// Meanwhile a read gives a page at most, with `untyped` a listing names no types, and with `cold`
// no file there lies in memory.
struct FailingSystem {
    std::string call;
    std::string below;
    // On the thread of a run, on others, or on any.
    std::optional<bool> byRun;
    bool lasting;
    bool untyped;
    bool cold;
    int nth = 1;
    int error = 5;
    std::atomic<int> made{0};

    void arm();
    ~FailingSystem();
    bool holds(int descriptor, const char* path) const;
    // Whether the call is to fail, with errno set then. `path` is as in openat, null for the
    // descriptor itself.
    static bool fails(const char* name, int descriptor, const char* path);
};

}  // namespace bracken::test
