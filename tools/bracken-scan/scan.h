#pragma once

#include <cstdint>

#include "tools/bracken-scan/findings.h"
#include "tools/bracken-scan/needles.h"
#include "tools/bracken-scan/source_walk.h"

namespace bracken::cli {

// Searches all files of the walk on so many threads, fewer if the system gives no more. What the
// walk could not list is among the findings too.
void scan(SourceWalk& walk, const Needles& needles, unsigned threads, Findings& findings);

}  // namespace bracken::cli
