#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <functional>
#include <map>

#include "framework/files/shell.h"
#include "framework/text/text.h"
#include "tests/plist/trees.h"

namespace {

// What becomes of a system call that saving makes: the `nth` one, of that name if there is one,
// ends the process or fails. 0 for none.
struct Fault {
    std::string name;
    int nth = 0;
    bool fatal = false;
};

Fault& fault() {
    static Fault armed;
    return armed;
}

bool strikes(const char* name) {
    Fault& armed = fault();
    if (armed.nth == 0 || (!armed.name.empty() && armed.name != name)) return false;
    return --armed.nth == 0;
}

bool fails(const char* name) {
    if (!strikes(name)) return false;
    if (fault().fatal) kill(getpid(), SIGKILL);
    errno = EIO;
    return true;
}

}  // namespace

// The linker puts these in the place of their namesakes in the code under test.
extern "C" {
int __real_open(const char* path, int flags, mode_t mode);
ssize_t __real_write(int descriptor, const void* bytes, size_t count);
int __real_fsync(int descriptor);
int __real_close(int descriptor);
int __real_rename(const char* from, const char* to);

int __wrap_open(const char* path, int flags, mode_t mode) {
    return fails("open") ? -1 : __real_open(path, flags, mode);
}
ssize_t __wrap_write(int descriptor, const void* bytes, size_t count) {
    if (!strikes("write")) return __real_write(descriptor, bytes, count);
    // As far as a full disk, or the end of the process, lets it come.
    __real_write(descriptor, bytes, count / 2);
    fault().nth = 1;
    fails("write");
    return -1;
}
int __wrap_fsync(int descriptor) {
    return fails("fsync") ? -1 : __real_fsync(descriptor);
}
int __wrap_close(int descriptor) {
    const bool failing = fails("close");
    const int result = __real_close(descriptor);
    return failing ? -1 : result;
}
int __wrap_rename(const char* from, const char* to) {
    return fails("rename") ? -1 : __real_rename(from, to);
}
}

namespace bracken {
namespace {

namespace fs = std::filesystem;

// A document of some hundred kilobytes on disk, in text or in binary form. What is saved bears the
// number of its generation, 0 to 2 and then 0 again.
class Durability : public testing::TestWithParam<bool> {
  protected:
    static constexpr int generations = 3;

    void SetUp() override {
        document = make<plist>(item(), nullptr);
        for (int i = 0; i < 200; ++i) {
            document->root->SetString("key " + Str(i), std::string(500, 'x') + "<>");
        }
        record();
        if (!GetParam()) return;
        Shell().Execute("plutil -convert binary1 " + item()->ShellPath());
        document = make<plist>(item(), nullptr);
        record();
    }

    void record() {
        for (int generation = generations - 1; generation >= 0; --generation) {
            save(generation);
            forms[withoutHead(folder.read(file))] = generation;
        }
    }
    // The head of a binary file's text is the converter's.
    static std::string withoutHead(const std::string& bytes) {
        const size_t end = bytes.find("<dict>\n");
        return end == bytes.npos ? bytes : bytes.substr(end);
    }

    Ref<FolderItem> item() const { return GetFolderItem(folder.path(file), 0); }
    void save(int generation) {
        document->root->SetInteger("generation", generation % generations);
        document->Save();
    }

    // Of what stands in the file or its copy; -1 if that is not whole.
    int generationIn(const char* name) const {
        const auto known = forms.find(withoutHead(folder.read(name)));
        return known == forms.end() ? -1 : known->second;
    }

    // Whether the file is whole, and so is its copy, if there is one, and what was saved as
    // `latest`, or else the next one, is there.
    testing::AssertionResult stands(int latest) const {
        const int stored = generationIn(file);
        const int copied = GetParam() ? generationIn(copy) : stored;
        bool isThere = false;
        for (const int generation : {latest, latest + 1}) {
            isThere |= stored == generation % generations || copied == generation % generations;
        }
        if (isThere && stored >= 0 && copied >= 0) return testing::AssertionSuccess();
        return testing::AssertionFailure() << stored << ", copy " << copied << " of " << latest;
    }

    bool hasNoLeftOver() const {
        return std::distance(fs::directory_iterator(folder.path()), {}) == (GetParam() ? 2 : 1);
    }

    static constexpr const char* file = "a b.plist";
    static constexpr const char* copy = "a b.plist temp";
    test::TempFolder folder;
    Ref<plist> document;
    // The bytes of each generation, in each form, less the head.
    std::map<std::string, int> forms;
};

// Runs `act` in a process of its own and tells whether that came to its end.
bool ends(const std::function<void()>& act) {
    const pid_t child = fork();
    if (child == 0) {
        act();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status);
}

TEST_P(Durability, OldOrNewStandsWhereverTheProcessEnds) {
    int calls = 1;
    const auto saving = [&] {
        fault() = {"", calls, true};
        save(1);
    };
    for (; !ends(saving); ++calls) {
        ASSERT_TRUE(stands(0)) << "call " << calls;
        item()->removeLeftOvers();
        ASSERT_TRUE(hasNoLeftOver()) << "call " << calls;
        save(0);
    }
    EXPECT_GE(calls, GetParam() ? 15 : 9);
    EXPECT_TRUE(stands(1));
}

TEST_P(Durability, OldOrNewStandsWhateverFails) {
    for (const std::string name : {"open", "write", "fsync", "close", "rename"}) {
        bool struck = true;
        for (int nth = 1; struck; ++nth) {
            fault() = {name, nth, false};
            save(1);
            struck = fault().nth == 0;
            fault() = {};
            ASSERT_TRUE(struck || nth > 1) << name;
            ASSERT_TRUE(stands(0)) << name << nth;
            ASSERT_TRUE(hasNoLeftOver());
            save(0);
            ASSERT_TRUE(stands(0)) << name << nth;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, Durability, testing::Bool(), [](const auto& form) {
    return std::string(form.param ? "Binary" : "Text");
});

}  // namespace
}  // namespace bracken
