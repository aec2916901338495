#pragma once

#include <mysql.h>

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace bracken {

// Some consecutive rows of a result, their bytes concatenated in one buffer. A row comes from one
// packet of at most 1 GiB, so 32 bits are enough for a position in a block of limited size.
class RowBlock {
  public:
    // Empties the block, for rows of that many fields; its memory is kept.
    void clear(size_t fieldCount);
    // Adds a row; a null pointer means NULL and is read as the empty text.
    void append(const char* const* fields, const unsigned long* lengths);

    size_t rowCount() const { return rowCount_; }
    size_t byteCount() const { return bytes_.size(); }
    // Counted from 0, not checked; valid until the block changes.
    std::string_view field(size_t row, size_t field) const {
        size_t index = row * fieldCount_ + field;
        return {bytes_.data() + ends_[index], ends_[index + 1] - ends_[index]};
    }

  private:
    size_t fieldCount_ = 0;
    size_t rowCount_ = 0;
    std::vector<char> bytes_;
    // Where each field ends, which is where the next one begins; starts with a 0.
    std::vector<uint32_t> ends_{0};
};

// The rows of one result, fetched in blocks by a thread of its own, a few blocks ahead of the
// reader. Until the last row has arrived nothing else may use the connection; keepAll waits for
// that. Needs no baton.
class RowStream {
  public:
    // Owns `result`, that of the statement just run on `handle`; fetches the first block before it
    // returns. Short results need no thread.
    RowStream(MYSQL* handle, MYSQL_RES* result);
    // Drops the other rows, but waits until they have arrived; a caller that can't wait shuts the
    // connection down first.
    ~RowStream();
    RowStream(const RowStream&) = delete;
    RowStream& operator=(const RowStream&) = delete;

    const std::vector<std::string>& names() const { return names_; }

    // Swaps the next rows into `block`, after a wait if there are none yet, and uses its memory for
    // later ones. False after the last rows. One caller at a time.
    bool take(RowBlock& block);
    // Waits until all rows have arrived; they are kept for `take`.
    void keepAll();
    // Drops the rows held and those still to arrive, without a wait for them.
    void discard();
    // Whether the last row, or an error in place of it, has arrived.
    bool ended();
    // The error that ended the rows, nothing if they are complete. Final once the stream has ended.
    std::optional<std::string> error();

  private:
    bool fill(RowBlock& block);
    void finish();
    void readAhead();
    RowBlock takeSpare();
    void waitForSpace();
    void add(RowBlock block, bool last);

    // Used by the constructor, then by the thread alone until the end.
    MYSQL* handle_;
    MYSQL_RES* result_;
    std::vector<std::string> names_;
    std::optional<std::string> fetchError_;

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<RowBlock> ready_;
    std::vector<RowBlock> spare_;
    bool ended_ = false;
    bool keepAll_ = false;
    bool discard_ = false;
    std::optional<std::string> error_;

    std::thread thread_;
};

}  // namespace bracken
