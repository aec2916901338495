#include "tools/bracken-scan/needles.h"

#include <string_view>

namespace bracken::cli {

namespace {

std::string_view stripped(const std::string& table, const std::string& prefix) {
    const bool begins = table.size() > prefix.size() && table.starts_with(prefix);
    return std::string_view(table).substr(begins ? prefix.size() : 0);
}

std::vector<std::string_view> withStripped(const std::vector<std::string>& tables,
                                           const std::string& prefix) {
    std::vector<std::string_view> names(tables.begin(), tables.end());
    if (!prefix.empty())
        for (const std::string& table : tables) names.push_back(stripped(table, prefix));
    return names;
}

}  // namespace

Needles::Needles(const std::vector<std::string>& tables, std::string prefix, bool wholeNames)
    : prefix_(std::move(prefix)),
      names_(withStripped(tables, prefix_), wholeNames ? HitRule::wholeNames : HitRule::anywhere) {}

std::array<uint32_t, 2> Needles::of(const std::string& table) const {
    return {static_cast<uint32_t>(names_.numberOf(table)),
            static_cast<uint32_t>(names_.numberOf(stripped(table, prefix_)))};
}

}  // namespace bracken::cli
