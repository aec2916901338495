#pragma once

#include <sys/types.h>

#include <cerrno>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace bracken {

// Modes of files; the process's mask is taken off the first one when a file is made.
constexpr mode_t newFileMode = 0666;
constexpr mode_t privateFileMode = 0600;
constexpr mode_t privateFolderMode = 0700;
// Bits of a mode: what owner, group and others may do, and these with set-user-ID, set-group-ID
// and sticky.
constexpr mode_t permissionBits = 0777;
constexpr mode_t allModeBits = 07777;

// Makes a system call, and makes it again as long as a signal interrupts it.
template <class Call>
auto uninterrupted(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

// Up to `count` bytes from the descriptor's position, 0 at the end of the file, -1 with errno set.
ssize_t readSome(int descriptor, char* bytes, size_t count);

// Owns an open file's descriptor, or none.
class Descriptor {
  public:
    explicit Descriptor(int number = -1) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept;
    // Leaves errno as it is.
    ~Descriptor();

    bool isOpen() const { return number_ >= 0; }
    // -1 for none.
    int get() const { return number_; }
    // False, with errno set, if the system reports that written bytes are lost.
    bool close();

  private:
    int number_;
};

// The folder itself, as a starting point of paths and nothing else; none, with errno set, if it
// can't be opened.
Descriptor openFolder(const std::string& path);

// False, with errno set, if the bytes can't all be written.
bool writeAll(int descriptor, std::string_view bytes);

}  // namespace bracken
