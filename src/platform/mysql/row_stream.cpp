#include "platform/mysql/row_stream.h"

#include <utility>

namespace bracken {

namespace {

// A block is closed once it holds this much. Each block is one hand-over to the reader, and one
// chance for the windows to paint.
constexpr size_t blockBytes = 512 * 1024;
// Rows of few bytes are closed by their number: each field costs memory of its own.
constexpr size_t blockRows = 16 * 1024;
constexpr size_t blocksAhead = 4;

std::vector<std::string> namesOf(MYSQL_RES* result) {
    std::vector<std::string> names;
    const MYSQL_FIELD* fields = mysql_fetch_fields(result);
    for (unsigned i = 0; i < mysql_num_fields(result); i++) {
        names.emplace_back(fields[i].name != nullptr ? fields[i].name : "");
    }
    return names;
}

}  // namespace

RowStream::RowStream(MYSQL* handle, MYSQL_RES* result)
    : handle_(handle), result_(result), names_(namesOf(result)) {
    RowBlock first;
    bool last = !fill(first);
    add(std::move(first), last);
    if (!last) thread_ = std::thread([this] { readAhead(); });
}

RowStream::~RowStream() {
    discard();
    if (thread_.joinable()) thread_.join();
}

bool RowStream::take(RowBlock& block) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !ready_.empty() || ended_; });
    if (ready_.empty()) return false;
    std::swap(block, ready_.front());
    if (spare_.size() < blocksAhead) spare_.push_back(std::move(ready_.front()));
    ready_.pop_front();
    changed_.notify_all();
    return true;
}

void RowStream::keepAll() {
    std::unique_lock lock(mutex_);
    keepAll_ = true;
    changed_.notify_all();
    changed_.wait(lock, [this] { return ended_; });
}

void RowStream::discard() {
    std::lock_guard lock(mutex_);
    discard_ = true;
    ready_.clear();
    spare_.clear();
    changed_.notify_all();
}

bool RowStream::ended() {
    std::lock_guard lock(mutex_);
    return ended_;
}

std::optional<std::string> RowStream::error() {
    std::lock_guard lock(mutex_);
    return error_;
}

void RowStream::readAhead() {
    bool more = true;
    while (more) {
        RowBlock block = takeSpare();
        more = fill(block);
        add(std::move(block), !more);
        waitForRoom();
    }
}

// False once there are no more rows; the connection is free then.
bool RowStream::fill(RowBlock& block) {
    block.clear(names_.size());
    while (block.byteCount() < blockBytes && block.rowCount() < blockRows) {
        MYSQL_ROW row = mysql_fetch_row(result_);
        if (row == nullptr) {
            release();
            return false;
        }
        block.append(row, mysql_fetch_lengths(result_));
    }
    return true;
}

// The end of the rows and a failure look alike but for the error number, which the start of the
// statement had cleared.
void RowStream::release() {
    if (mysql_errno(handle_) != 0) fetchError_ = mysql_error(handle_);
    mysql_free_result(result_);
}

RowBlock RowStream::takeSpare() {
    std::lock_guard lock(mutex_);
    if (spare_.empty()) return {};
    RowBlock block = std::move(spare_.back());
    spare_.pop_back();
    return block;
}

void RowStream::waitForRoom() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock,
                  [this] { return ready_.size() < blocksAhead || keepAll_ || discard_ || ended_; });
}

void RowStream::add(RowBlock block, bool last) {
    std::lock_guard lock(mutex_);
    if (!discard_ && block.rowCount() > 0) ready_.push_back(std::move(block));
    ended_ = last;
    if (last) error_ = fetchError_;
    changed_.notify_all();
}

}  // namespace bracken
