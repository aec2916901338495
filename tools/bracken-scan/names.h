#pragma once

#include <string>
#include <vector>

#include "tools/bracken-scan/options.h"

namespace bracken::cli {

// The names of the tables, each once, in the order given: of --tables or of the server. Failure if
// they can't be read, or there are none.
std::vector<std::string> tableNames(const Options& options);

}  // namespace bracken::cli
