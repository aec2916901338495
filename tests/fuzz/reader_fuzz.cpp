#include "framework/files/folder_item.h"
#include "plist/plist.h"
#include "tests/fuzz/trees.h"

using namespace bracken;

// Any bytes give a tree; what is written of it can be read again.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view body(reinterpret_cast<const char*>(data), size);
    const auto root = fuzz::read(body, nullptr);
    fuzz::checkTree(*root);
    const std::string once = fuzz::written(*root);
    const auto again = fuzz::read(once + "</dict>\n", nullptr);
    fuzz::checkTree(*again);
    return 0;
}
