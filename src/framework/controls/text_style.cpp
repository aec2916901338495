#include "framework/controls/text_style.h"

#include <algorithm>

namespace bracken {

namespace {

void append(std::vector<StyleRun>& runs, const StyleRun& run) {
    if (run.length <= 0 || run.style == TextStyle()) return;
    bool joins = !runs.empty() && runs.back().end() == run.from && runs.back().style == run.style;
    if (joins)
        runs.back().length += run.length;
    else
        runs.push_back(run);
}

StyleRun between(int64_t from, int64_t end, const TextStyle& style) {
    return {from, end - from, style};
}

}  // namespace

void TextStyles::apply(int64_t from, int64_t length,
                       const std::function<void(TextStyle&)>& change) {
    if (length <= 0) return;
    int64_t end = from + length;
    // Neighbours that only touch are taken along, since they may join.
    auto first = std::partition_point(runs_.begin(), runs_.end(),
                                      [&](const StyleRun& run) { return run.end() < from; });
    auto last = std::partition_point(first, runs_.end(),
                                     [&](const StyleRun& run) { return run.from <= end; });
    std::vector<StyleRun> pieces;
    int64_t at = from;
    auto changed = [&](int64_t upTo, TextStyle style) {
        change(style);
        append(pieces, between(at, upTo, style));
        at = upTo;
    };
    for (auto run = first; run != last; ++run) {
        append(pieces, between(run->from, std::min(run->end(), from), run->style));
        if (run->from > at) changed(std::min(run->from, end), {});
        if (run->end() > at && at < end) changed(std::min(run->end(), end), run->style);
        append(pieces, between(std::max(run->from, end), run->end(), run->style));
    }
    if (at < end) changed(end, {});
    auto place = runs_.erase(first, last);
    runs_.insert(place, pieces.begin(), pieces.end());
}

}  // namespace bracken
