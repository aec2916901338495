#include "scan/cached_calls.h"

#include <linux/openat2.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cstdint>

namespace bracken {

Descriptor openCached(int folder, const char* path, int flags) {
    struct open_how how = {};
    how.flags = static_cast<uint64_t>(flags);
    how.resolve = RESOLVE_CACHED;
    return Descriptor(static_cast<int>(
        uninterrupted([&] { return syscall(SYS_openat2, folder, path, &how, sizeof how); })));
}

ssize_t readCached(int descriptor, char* bytes, size_t count) {
    struct iovec target = {bytes, count};
    constexpr off_t currentPosition = -1;
    return uninterrupted(
        [&] { return preadv2(descriptor, &target, 1, currentPosition, RWF_NOWAIT); });
}

}  // namespace bracken
