#pragma once

#include <string>
#include <vector>

#include "tools/bracken-scan/options.h"

namespace bracken::cli {

// The tables and views of options.database, as the server lists them. Failure, with the server's
// words, if it doesn't to their end. Once, before the process has threads.
std::vector<std::string> namesOfServer(const Options& options);

}  // namespace bracken::cli
