#pragma once

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

namespace bracken {

// A growing run of bytes. Grows by realloc, which moves a large buffer by its pages or not at
// all, where a vector would copy it into pages that the system has to provide first.
class ByteBuffer {
  public:
    ByteBuffer() = default;
    explicit ByteBuffer(std::string_view bytes) {
        reserve(bytes.size());
        append(bytes);
    }
    ByteBuffer(ByteBuffer&& other) noexcept { *this = std::move(other); }
    ByteBuffer& operator=(ByteBuffer&& other) noexcept {
        std::swap(bytes_, other.bytes_);
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
        return *this;
    }

    // Valid until the next append.
    std::string_view text() const { return {bytes_.get(), size_}; }
    // `bytes` must not lie in this buffer.
    void append(std::string_view bytes) {
        if (bytes.empty()) return;
        size_t size = size_ + bytes.size();
        // Doubles while it is small, then grows by half.
        constexpr size_t small = 256;
        if (size > capacity_) reserve(size + (size < small ? size : std::max(size / 2, small)));
        std::memcpy(bytes_.get() + size_, bytes.data(), bytes.size());
        size_ = size;
    }

  private:
    struct Free {
        void operator()(char* bytes) const { std::free(bytes); }
    };

    void reserve(size_t capacity) {
        if (capacity == 0) return;
        auto* grown = static_cast<char*>(std::realloc(bytes_.get(), capacity));
        if (grown == nullptr) throw std::bad_alloc();
        static_cast<void>(bytes_.release());
        bytes_.reset(grown);
        capacity_ = capacity;
    }

    std::unique_ptr<char, Free> bytes_;
    size_t size_ = 0;
    size_t capacity_ = 0;
};

}  // namespace bracken
