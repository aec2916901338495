#pragma once

#include <cerrno>
#include <functional>
#include <string>
#include <utility>

#include "framework/files/file_calls.h"

namespace bracken::test {

// The real calls, but for one that fails, and a record of their names in order.
class FailingCalls : public FileCalls {
  public:
    // The call of that name fails with `error` its `nth` time, counted from 1.
    explicit FailingCalls(std::string name = "", int nth = 1, int error = ENOSPC)
        : failing_(std::move(name)), left_(nth), error_(error) {}

    int open(const char* path, int flags, mode_t mode) override {
        return fails("open") ? -1 : FileCalls::open(path, flags, mode);
    }
    // Takes no more than a few bytes at a time, as a pipe or a full disk does.
    ssize_t write(int descriptor, const void* bytes, size_t count) override {
        return fails("write") ? -1 : FileCalls::write(descriptor, bytes, count < 5 ? count : 5);
    }
    int fallocate(int descriptor, off_t size) override {
        return fails("fallocate") ? -1 : FileCalls::fallocate(descriptor, size);
    }
    int fchmod(int descriptor, mode_t mode) override {
        return fails("fchmod") ? -1 : FileCalls::fchmod(descriptor, mode);
    }
    int fsync(int descriptor) override {
        return fails("fsync") ? -1 : FileCalls::fsync(descriptor);
    }
    int lock(int descriptor) override {
        if (beforeLock) std::exchange(beforeLock, nullptr)();
        return fails("lock") ? -1 : FileCalls::lock(descriptor);
    }
    int rename(const char* from, const char* to) override {
        return fails("rename") ? -1 : FileCalls::rename(from, to);
    }

    // Calls made, each with a blank after it, those of one name in a row once.
    std::string made;
    // What somebody else does before the next lock.
    std::function<void()> beforeLock;

  private:
    bool fails(const std::string& name) {
        if (!made.ends_with(name + " ")) made += name + " ";
        if (name != failing_ || --left_ != 0) return false;
        errno = error_;
        return true;
    }

    std::string failing_;
    int left_;
    int error_;
};

}  // namespace bracken::test
