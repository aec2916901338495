#pragma once

#include <string>

#include "tools/bracken-scan/options.h"

namespace bracken::cli {

// That of the file, else of the variable BRACKEN_PASSWORD, else what is typed, if standard input is
// a terminal; else none. Failure if the file can't be read.
std::string password(const Options& options);

}  // namespace bracken::cli
