#include "tools/bracken-scan/allow_list.h"

#include <algorithm>

#include "framework/text/text.h"
#include "tools/bracken-scan/glob.h"
#include "tools/bracken-scan/lines.h"

namespace bracken::cli {

AllowList::AllowList(const std::optional<std::string>& file) {
    if (!file) return;
    const std::string text = readFile(*file);
    for (const std::string_view line : linesOf(text)) {
        if (line.starts_with('#')) continue;
        if (isGlob(line)) globs_.emplace_back(line);
        names_.insert(Lowercase(line));
    }
}

bool AllowList::has(std::string_view table) const {
    return names_.contains(Lowercase(table)) ||
           std::any_of(globs_.begin(), globs_.end(), [&](const std::string& glob) {
               return globMatches(glob, table, LetterCase::disregarded);
           });
}

}  // namespace bracken::cli
