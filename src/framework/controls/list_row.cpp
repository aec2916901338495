#include "framework/controls/list_row.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#include "framework/controls/byte_buffer.h"

namespace bracken {

// A packed row's block: one byte W, the size of the numbers in it; the number of cells; for each
// cell where it ends, counted from the first cell's start; the cells' bytes.

namespace {

size_t readNumber(const unsigned char* bytes, size_t width) {
    uint64_t number = 0;
    std::memcpy(&number, bytes, width);
    return number;
}

void writeNumber(unsigned char* bytes, size_t width, uint64_t number) {
    std::memcpy(bytes, &number, width);
}

// Bytes are copied from the low end of a number.
static_assert(std::endian::native == std::endian::little);

size_t widthFor(size_t number) {
    if (number <= UINT8_MAX) return 1;
    if (number <= UINT16_MAX) return 2;
    return number <= UINT32_MAX ? 4 : 8;
}

// Reads a packed row.
struct Packed {
    const unsigned char* block;
    size_t width = block[0];
    size_t count = readNumber(block + 1, width);

    size_t end(size_t cells) const { return cells == 0 ? 0 : readNumber(at(cells), width); }
    const unsigned char* at(size_t number) const { return block + 1 + number * width; }
    std::string_view text(size_t column) const {
        if (column >= count) return {};
        const auto* bytes = reinterpret_cast<const char*>(at(count + 1));
        return {bytes + end(column), end(column + 1) - end(column)};
    }
};

}  // namespace

struct ListRow::Cell {
    ByteBuffer bytes;

    Cell() = default;
    explicit Cell(std::string_view text) : bytes(text) {}
};

ListRow::ListRow(const std::vector<std::string_view>& cells) {
    pack(cells);
}

ListRow::~ListRow() = default;
ListRow::ListRow(ListRow&& other) noexcept = default;
ListRow& ListRow::operator=(ListRow&& other) noexcept = default;

std::string_view ListRow::text(size_t column) const {
    if (cells_ == nullptr) return Packed{block_.get()}.text(column);
    return column < cells_->size() ? (*cells_)[column].bytes.text() : std::string_view();
}

std::vector<std::string_view> ListRow::texts() const {
    Packed packed{block_.get()};
    std::vector<std::string_view> texts;
    for (size_t column = 0; column < packed.count; column++) texts.push_back(packed.text(column));
    return texts;
}

void ListRow::pack(const std::vector<std::string_view>& texts) {
    size_t size = 0;
    for (std::string_view text : texts) size += text.size();
    size_t width = widthFor(std::max(size, texts.size()));
    size_t head = 1 + (texts.size() + 1) * width;
    auto block = std::make_unique_for_overwrite<unsigned char[]>(head + size);
    block[0] = static_cast<unsigned char>(width);
    unsigned char* number = &block[1];
    writeNumber(number, width, texts.size());
    size_t end = 0;
    for (std::string_view text : texts) {
        std::copy(text.begin(), text.end(), block.get() + head + end);
        end += text.size();
        writeNumber(number += width, width, end);
    }
    block_ = std::move(block);
}

void ListRow::unpack() {
    cells_ = std::make_unique<Cells>();
    for (std::string_view text : texts()) cells_->emplace_back(text);
    block_ = nullptr;
}

ListRow::Cell& ListRow::cell(size_t column) {
    if (column >= cells_->size()) cells_->resize(column + 1);
    return (*cells_)[column];
}

void ListRow::set(size_t column, std::string_view text) {
    if (cells_ != nullptr) {
        cell(column) = Cell(text);
        return;
    }
    std::vector<std::string_view> all = texts();
    if (column >= all.size()) all.resize(column + 1);
    all[column] = text;
    pack(all);
}

void ListRow::append(size_t column, std::string_view text) {
    if (cells_ == nullptr) unpack();
    cell(column).bytes.append(text);
}

}  // namespace bracken
