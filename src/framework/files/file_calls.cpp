#include "framework/files/file_calls.h"

#include <fcntl.h>
#include <unistd.h>

namespace bracken {

ssize_t readSome(int descriptor, char* bytes, size_t count) {
    return uninterrupted([&] { return read(descriptor, bytes, count); });
}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
}

Descriptor::~Descriptor() {
    int error = errno;
    close();
    errno = error;
}

bool Descriptor::close() {
    return !isOpen() || ::close(std::exchange(number_, -1)) == 0;
}

Descriptor openFolder(const std::string& path) {
    return Descriptor(open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        ssize_t written =
            uninterrupted([&] { return write(descriptor, bytes.data(), bytes.size()); });
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<size_t>(written));
    }
    return true;
}

}  // namespace bracken
