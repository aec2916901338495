#include <cstdio>
#include <cstdlib>

#include "tests/plist/steps.h"

using namespace bracken;

// Any bytes give the tree, and the tree the text, that the model says.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::string difference = test::differenceInReading(test::withoutEndlessLines(text));
    if (difference.empty()) return 0;
    std::fputs(difference.c_str(), stderr);
    std::abort();
}
