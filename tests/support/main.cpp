#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

#include "framework/threads/baton.h"
#include "tests/support/temp_folder.h"

// Every test program lives in a home of its own: neither the user's settings nor another program's
// ever meet a test. Tests run as an event of the program does,
// on the main thread, holding the baton.
namespace {

void setPlace(const char* variable, const std::string& path) {
    setenv(variable, path.c_str(), 1);
    chmod(path.c_str(), 0700);
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const bracken::test::TempFolder home;
    setPlace("HOME", home.path());
    setPlace("XDG_CONFIG_HOME", home.makeFolder("config"));
    setPlace("XDG_DATA_HOME", home.makeFolder("data"));
    setPlace("XDG_RUNTIME_DIR", home.makeFolder("run"));
    setPlace("XDG_CACHE_HOME", home.makeFolder("cache"));
    const bracken::baton::Hold hold;
    return RUN_ALL_TESTS();
}
