#include "tests/support/fake_platform.h"

#include <gtest/gtest.h>

#include <thread>

#include "framework/threads/main_thread_calls.h"
#include "framework/threads/thread.h"
#include "framework/threads/without_baton.h"
#include "framework/windows/windows.h"

namespace bracken::test {

FakePlatform::FakePlatform() {
    install(this);
    Windows::get().reset();
}

FakePlatform::~FakePlatform() {
    Thread::killAll();
    {
        BatonRelease released;
        Thread::joinAll();
    }
    Windows::get().reset();
    install(nullptr);
    for (auto& box : boxes_) ADD_FAILURE() << "never shown: " << box.text;
    EXPECT_TRUE(folders_.empty()) << "a folder was never asked for";
    EXPECT_TRUE(saves_.empty()) << "a file to write was never asked for";
    EXPECT_TRUE(modals_.empty()) << "a modal window was never shown";
}

namespace {

// Takes the first of the answers; one that holds nothing, and a failed test, if there is none.
template <class Answer>
Answer next(std::deque<Answer>& answers, const std::string& question) {
    if (answers.empty()) {
        ADD_FAILURE() << "unexpected: " << question;
        return {};
    }
    Answer first = std::move(answers.front());
    answers.pop_front();
    return first;
}

}  // namespace

int FakePlatform::messageBox(const std::string& text, int code, const std::string& /*title*/) {
    boxCodes.push_back(code);
    const Box box = next(boxes_, text);
    if (box.shown != nullptr)
        *box.shown = text;
    else
        EXPECT_EQ(text, box.text);
    boxClosed_ = false;
    if (whileBoxIsOpen) whileBoxIsOpen();
    while (box.leftOpen && !boxClosed_) std::this_thread::yield();
    return box.answer;
}

std::string FakePlatform::selectFolder() {
    return next(folders_, "folder dialog");
}

std::string FakePlatform::saveFile(const SaveQuestion& question) {
    saveQuestions.push_back(question);
    return next(saves_, "dialog for a file to write");
}

void FakePlatform::runModal(const Window& window) {
    const auto user = next(modals_, "modal window");
    if (!user) return;
    baton::Hold hold;
    user(window);
    EXPECT_TRUE(window.closed()) << "the modal window stays open";
}

void runUntil(const std::function<bool()>& condition) {
    while (!condition()) {
        MainThreadCalls::instance().run();
        BatonRelease released;
        std::this_thread::yield();
    }
}

}  // namespace bracken::test
