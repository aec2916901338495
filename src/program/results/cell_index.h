#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "program/results/file_name_pool.h"

namespace bracken {

// An index of the comma-separated names in a cell's text: finds whether a name lies anywhere inside
// that text, as InStr would, without reading it. Belongs to one cell; the pool is shared by all.
class CellIndex {
  public:
    // Indexes the text.
    CellIndex(std::string_view text, FileNamePool& pool);

    // Whether the name, which holds no comma, lies inside the text. `name` is its number.
    bool contains(uint32_t name, const FileNamePool& pool);
    // A name and its comma have been appended to the text.
    void add(uint32_t name, const FileNamePool& pool);
    // Whether the text so far ends where a name does, so that names may be appended.
    bool complete() const { return complete_; }

  private:
    void insert(uint32_t name);
    void grow();

    // Names in the text and those known to lie inside them, plus one, by open addressing; 0 is
    // free.
    std::vector<uint32_t> slots_;
    size_t count_ = 0;
    bool complete_ = true;
};

}  // namespace bracken
