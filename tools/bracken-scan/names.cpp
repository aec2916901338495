#include "tools/bracken-scan/names.h"

#include <string_view>
#include <unordered_set>

#include "tools/bracken-scan/failure.h"
#include "tools/bracken-scan/lines.h"
#include "tools/bracken-scan/server.h"

namespace bracken::cli {

namespace {

std::vector<std::string> namesOfFile(const std::string& path) {
    const std::string text = path == "-" ? readStandardInput() : readFile(path);
    const auto lines = linesOf(text);
    return {lines.begin(), lines.end()};
}

std::vector<std::string> eachOnce(std::vector<std::string> names) {
    std::unordered_set<std::string> known;
    std::erase_if(names, [&](const std::string& name) { return !known.insert(name).second; });
    return names;
}

}  // namespace

std::vector<std::string> tableNames(const Options& options) {
    auto names = eachOnce(options.tables ? namesOfFile(*options.tables) : namesOfServer(options));
    if (!names.empty()) return names;
    throw Failure(options.tables ? *options.tables + " holds no table name"
                                 : "the database " + *options.database + " holds no table");
}

}  // namespace bracken::cli
