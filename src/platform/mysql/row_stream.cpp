#include "platform/mysql/row_stream.h"

#include <utility>

namespace bracken {

namespace {

// A block is full with this many bytes or rows; rows are limited since each field takes memory
// however short it is. Each block is one hand-over to the reader, and one chance for windows to
// paint.
constexpr size_t maxBlockBytes = 512 * 1024;
constexpr size_t maxBlockRows = 16 * 1024;
constexpr size_t maxBlocksAhead = 4;

std::vector<std::string> namesOf(MYSQL_RES* result) {
    std::vector<std::string> names;
    const MYSQL_FIELD* fields = mysql_fetch_fields(result);
    for (unsigned i = 0; i < mysql_num_fields(result); i++) {
        names.emplace_back(fields[i].name != nullptr ? fields[i].name : "");
    }
    return names;
}

}  // namespace

void RowBlock::clear(size_t fieldCount) {
    fieldCount_ = fieldCount;
    rowCount_ = 0;
    bytes_.clear();
    ends_.assign(1, 0);
}

void RowBlock::append(const char* const* fields, const unsigned long* lengths) {
    for (size_t i = 0; i < fieldCount_; i++) {
        if (fields[i] != nullptr) bytes_.insert(bytes_.end(), fields[i], fields[i] + lengths[i]);
        ends_.push_back(static_cast<uint32_t>(bytes_.size()));
    }
    rowCount_++;
}

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
    if (spare_.size() < maxBlocksAhead) spare_.push_back(std::move(ready_.front()));
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
        waitForSpace();
    }
}

// False after the last row; then the connection is free.
bool RowStream::fill(RowBlock& block) {
    block.clear(names_.size());
    while (block.byteCount() < maxBlockBytes && block.rowCount() < maxBlockRows) {
        MYSQL_ROW row = mysql_fetch_row(result_);
        if (row == nullptr) {
            finish();
            return false;
        }
        block.append(row, mysql_fetch_lengths(result_));
    }
    return true;
}

// The end of the rows and a failure differ in the error number only, which the start of the
// statement has cleared.
void RowStream::finish() {
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

void RowStream::waitForSpace() {
    std::unique_lock lock(mutex_);
    changed_.wait(
        lock, [this] { return ready_.size() < maxBlocksAhead || keepAll_ || discard_ || ended_; });
}

void RowStream::add(RowBlock block, bool last) {
    std::lock_guard lock(mutex_);
    if (!discard_ && block.rowCount() > 0) ready_.push_back(std::move(block));
    ended_ = last;
    if (last) error_ = fetchError_;
    changed_.notify_all();
}

}  // namespace bracken
