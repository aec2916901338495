#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace bracken::test {

// While it lives, `fails` is asked ahead of each call of these functions of the system by the
// program or the C++ library, by name and on the calling thread: open, openat, openat2 (a syscall),
// readdir, read, preadv2, write, fallocate, fchmod, fsync, flock, rename. Where it answers yes,
// with errno set, the call fails and is not made; else errno stays. Reads and writes move no more
// than `mostBytes` at a time. Only one may live, and threads that make such calls end before it
// does.
class SystemCalls {
  public:
    using Fails = std::function<bool(std::string_view name)>;

    explicit SystemCalls(Fails fails, size_t mostBytes = SIZE_MAX);
    ~SystemCalls();
    SystemCalls(const SystemCalls&) = delete;
    SystemCalls& operator=(const SystemCalls&) = delete;

    const Fails fails;
    const size_t mostBytes;
};

}  // namespace bracken::test
