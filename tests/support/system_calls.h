#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace bracken::test {

// While one lives, `fails` is asked ahead of each call of these functions of the system by the
// program, by name and on the calling thread: open, openat, openat2, readdir, read, preadv2, write,
// fallocate, fchmod, fsync, flock, rename. Where it answers yes, with errno set, the call fails and
// is not made. Reads and writes move no more than `mostBytes` at a time. One at a time.
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
