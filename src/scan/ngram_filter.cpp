#include "scan/ngram_filter.h"

namespace bracken {

void NgramFilter::setPair(int place, int first, int second) {
    rows_[place][first] |= 1U << second;
    Plane& plane = planes_[place][second / 8];
    auto& half = first < 16 ? plane.low : plane.high;
    auto bit = static_cast<uint8_t>(1U << (second % 8));
    half[first % 16] |= bit;
    half[first % 16 + 16] |= bit;
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
