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

void FakePlatform::expectBox(const std::string& text, int answer) {
    boxes_.push_back({text, answer, false});
}

void FakePlatform::expectAnyBox(std::string& text) {
    boxes_.push_back({"", BoxCode::okPressed, false, &text});
}

void FakePlatform::expectBoxLeftOpen(const std::string& text) {
    boxes_.push_back({text, BoxCode::okPressed, true});
}

void FakePlatform::expectFolder(const std::string& path) {
    folders_.push_back(path);
}

int FakePlatform::messageBox(const std::string& text, int code, const std::string& /*title*/) {
    boxCodes.push_back(code);
    if (boxes_.empty()) {
        ADD_FAILURE() << "unexpected box: " << text;
        return BoxCode::okPressed;
    }
    Box box = boxes_.front();
    boxes_.pop_front();
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
    if (folders_.empty()) {
        ADD_FAILURE() << "unexpected folder dialog";
        return "";
    }
    std::string path = folders_.front();
    folders_.pop_front();
    return path;
}

void FakePlatform::expectSave(const std::string& path) {
    saves_.push_back(path);
}

std::string FakePlatform::saveFile(const SaveQuestion& question) {
    saveQuestions.push_back(question);
    if (saves_.empty()) {
        ADD_FAILURE() << "unexpected dialog for a file to write";
        return "";
    }
    std::string path = saves_.front();
    saves_.pop_front();
    return path;
}

void FakePlatform::expectModal(const std::function<void(const Window&)>& user) {
    modals_.push_back(user);
}

void FakePlatform::runModal(const Window& window) {
    if (modals_.empty()) {
        ADD_FAILURE() << "unexpected modal window";
        return;
    }
    auto user = modals_.front();
    modals_.pop_front();
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
