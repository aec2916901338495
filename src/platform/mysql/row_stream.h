#pragma once

#include <mysql.h>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/mysql/row_block.h"

namespace bracken {

// The rows of one running result, fetched in blocks by a thread of its own, a few blocks ahead of
// whoever takes them. Until the last row has come nobody else may use the connection; keepAll waits
// for that. Needs no baton.
class RowStream {
  public:
    // Takes the result that the statement just run on `handle` streams; fetches the first block
    // before it returns. Short results need no thread.
    RowStream(MYSQL* handle, MYSQL_RES* result);
    // Drops the rest of the rows; whoever can't wait for them shuts the connection down first.
    ~RowStream();
    RowStream(const RowStream&) = delete;
    RowStream& operator=(const RowStream&) = delete;

    const std::vector<std::string>& names() const { return names_; }

    // Puts the next rows into `block`, waiting for them if need be, and takes its memory for later
    // ones. False behind the last rows. One caller at a time.
    bool take(RowBlock& block);
    // Waits until all rows have come and are kept for `take`.
    void keepAll();
    // Drops the rows that are held and those still to come, without waiting for them.
    void discard();
    // Whether the last row has come, or the rows have broken off.
    bool ended();
    // Why the rows broke off, nothing if they did not. Settled once the stream has ended.
    std::optional<std::string> error();

  private:
    bool fill(RowBlock& block);
    void release();
    void readAhead();
    RowBlock takeSpare();
    void waitForRoom();
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
