#include "scan/table_names.h"

#include "framework/text/text.h"

namespace bracken {

TableNames::TableNames(const std::vector<std::string_view>& names, HitRule rule) {
    std::vector<std::string> distinct;
    for (std::string_view name : names) {
        std::string lower = Lowercase(name);
        if (numbers_.emplace(lower, static_cast<uint32_t>(distinct.size())).second)
            distinct.push_back(std::move(lower));
    }
    matcher_ = std::make_unique<Matcher>(distinct, rule);
}

int64_t TableNames::numberOf(std::string_view name) const {
    auto found = numbers_.find(Lowercase(name));
    return found == numbers_.end() ? -1 : int64_t{found->second};
}

}  // namespace bracken
