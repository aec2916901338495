#pragma once

#include <string>
#include <vector>

namespace bracken::test {

// What a table's row must read.
struct Found {
    std::string names = "Not Found Yet";
    std::string paths;

    friend bool operator==(const Found&, const Found&) = default;
};

// The scan as it is defined: a loop over the files below a folder, in byte order of their names,
// and in it one over the tables. Uses none of the program's code.
std::vector<Found> plainScan(const std::string& folder, const std::string& extensions,
                             const std::vector<std::string>& tables);

}  // namespace bracken::test
