#include "tools/plutil/object_table.h"

#include <stdexcept>

namespace bracken::plutil {

namespace {

constexpr uint64_t trailerSize = 32;

// Types of objects, the upper half of an object's first byte.
enum : unsigned {
    dataType = 4,
    textType = 5,
    wideTextType = 6,
    arrayType = 0xA,
    setType = 0xC,
    dictionaryType = 0xD
};

// Bytes of XML for a unit of content at most: a byte of text may become "&#10;".
uint64_t bytesPerUnit(unsigned type) {
    if (type == dataType) return 2;
    return type == textType || type == wideTextType ? 5 : 0;
}

[[noreturn]] void refuse() {
    throw std::runtime_error("not a property list");
}

}  // namespace

ObjectTable::ObjectTable(std::string_view bytes) : bytes_(bytes) {
    if (bytes.size() < trailerSize) refuse();
    uint64_t trailer = bytes.size() - trailerSize;
    offsetSize_ = number(trailer + 6, 1);
    referenceSize_ = number(trailer + 7, 1);
    count_ = number(trailer + 8, 8);
    root_ = number(trailer + 16, 8);
    offsets_ = number(trailer + 24, 8);
    if (offsetSize_ == 0 || offsets_ > trailer || count_ > (trailer - offsets_) / offsetSize_)
        refuse();
}

ObjectTable::Object ObjectTable::object(uint64_t index) const {
    if (index >= count_) refuse();
    uint64_t at = number(offsets_ + index * offsetSize_, offsetSize_);
    uint64_t mark = number(at++, 1);
    auto type = static_cast<unsigned>(mark >> 4);
    uint64_t length = mark & 0xF;
    if (type >= dataType && length == 0xF) {
        uint64_t size = uint64_t{1} << (number(at++, 1) & 0xF);
        length = number(at, size);
        at += size;
    }
    if (length > bytes_.size()) refuse();
    Object object = {
        .content = length * bytesPerUnit(type), .container = type >= arrayType, .children = {}};
    if (type >= arrayType && type <= setType) object.children = references(at, length);
    if (type == dictionaryType) object.children = references(at, length * 2);
    return object;
}

// Big-endian.
uint64_t ObjectTable::number(uint64_t at, uint64_t size) const {
    if (size > 8 || at > bytes_.size() || size > bytes_.size() - at) refuse();
    uint64_t number = 0;
    for (char byte : bytes_.substr(at, size))
        number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}

std::vector<uint64_t> ObjectTable::references(uint64_t at, uint64_t count) const {
    if (at > bytes_.size() || referenceSize_ == 0 || count > (bytes_.size() - at) / referenceSize_)
        refuse();
    std::vector<uint64_t> all;
    all.reserve(count);
    for (uint64_t i = 0; i < count; ++i)
        all.push_back(number(at + i * referenceSize_, referenceSize_));
    return all;
}

}  // namespace bracken::plutil
