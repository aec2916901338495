#include "platform/mysql/row_block.h"

namespace bracken {

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

}  // namespace bracken
