#include <sys/stat.h>

#include "framework/threads/baton.h"
#include "tests/support/temp_folder.h"

// Every test program lives in a home of its own: neither the user's settings nor another program's
// ever meet a test. Tests run as an event of the program does, on the main thread, holding the
// baton.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const bracken::test::TempFolder home;
    setenv("HOME", home.path().c_str(), 1);
    for (const std::string place : {"CONFIG_HOME", "DATA_HOME", "CACHE_HOME", "RUNTIME_DIR"}) {
        const std::string path = home.makeFolder(place);
        chmod(path.c_str(), 0700);
        setenv(("XDG_" + place).c_str(), path.c_str(), 1);
    }
    const bracken::baton::Hold hold;
    return RUN_ALL_TESTS();
}
