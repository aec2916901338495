#include "scan/ngram_filter.h"

namespace bracken {

NgramFilter::Instructions NgramFilter::best() {
    if (hasAvx512()) return Instructions::avx512;
    return hasAvx2() ? Instructions::avx2 : Instructions::plain;
}

void NgramFilter::Pairs::Classes::set(int symbol, int other) {
    auto& half = symbol < 16 ? low : high;
    auto bit = static_cast<uint8_t>(1U << (other % 8));
    half[symbol % 16] |= bit;
    half[symbol % 16 + 16] |= bit;
}

void NgramFilter::setPair(int place, int first, int second) {
    rows_[place][first] |= 1U << second;
    pairs_[place].after.set(first, second);
    pairs_[place].before.set(second, first);
}

void NgramFilter::add(std::string_view text) {
    for (int place = 0; place < 2; place++)
        setPair(place, symbolOf(text[place]), symbolOf(text[place + 1]));
    if (text.size() > 3) {
        setPair(2, symbolOf(text[2]), symbolOf(text[3]));
        return;
    }
    for (int second = 0; second < symbols; second++) setPair(2, symbolOf(text[2]), second);
}

size_t NgramFilter::collectPlain(const char* text, size_t blocks, uint16_t* positions) const {
    size_t count = 0;
    for (size_t i = 0; i < blocks * block; i++) {
        int a = symbolOf(text[i]);
        int b = symbolOf(text[i + 1]);
        int c = symbolOf(text[i + 2]);
        int d = symbolOf(text[i + 3]);
        positions[count] = static_cast<uint16_t>(i);
        count += (rows_[0][a] >> b) & (rows_[1][b] >> c) & (rows_[2][c] >> d) & 1U;
    }
    return count;
}

}  // namespace bracken
