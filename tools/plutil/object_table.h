#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace bracken::plutil {

// The objects of a property list in binary form, numbered from 0. Each operation raises
// std::runtime_error if the bytes are no property list. The bytes outlive it.
class ObjectTable {
  public:
    struct Object {
        // Bytes of XML that a text or data may take; else 0.
        uint64_t content = 0;
        bool container = false;
        // Keys and values of a dictionary, elements of an array.
        std::vector<uint64_t> children;
    };

    explicit ObjectTable(std::string_view bytes);

    uint64_t root() const { return root_; }
    uint64_t count() const { return count_; }
    Object object(uint64_t index) const;

  private:
    uint64_t number(uint64_t at, uint64_t size) const;
    std::vector<uint64_t> references(uint64_t at, uint64_t count) const;

    std::string_view bytes_;
    uint64_t offsetSize_ = 0;
    uint64_t referenceSize_ = 0;
    uint64_t count_ = 0;
    uint64_t root_ = 0;
    uint64_t offsets_ = 0;
};

}  // namespace bracken::plutil
