#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace bracken {

// Some consecutive rows of a result, their bytes end to end in one buffer. A row comes from one
// packet of at most 1 GiB, so 32 bits hold every position in a block that is closed in time.
class RowBlock {
  public:
    // Makes it empty, for rows of that many fields; its memory is kept.
    void clear(size_t fieldCount);
    // Adds a row; a field without a pointer is NULL and reads as the empty text.
    void append(const char* const* fields, const unsigned long* lengths);

    size_t rowCount() const { return rowCount_; }
    size_t byteCount() const { return bytes_.size(); }
    // Counted from 0, unchecked; valid until the block changes.
    std::string_view field(size_t row, size_t field) const {
        size_t index = row * fieldCount_ + field;
        return {bytes_.data() + ends_[index], ends_[index + 1] - ends_[index]};
    }

  private:
    size_t fieldCount_ = 0;
    size_t rowCount_ = 0;
    std::vector<char> bytes_;
    // Where each field ends, behind a leading 0: so also where the next one begins.
    std::vector<uint32_t> ends_{0};
};

}  // namespace bracken
