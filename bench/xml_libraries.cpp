#include "bench/xml_libraries.h"

#include <plist/plist.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace bracken::bench {

void readWithLibplist(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    const std::string text = bytes.str();
    plist_t tree = nullptr;
    plist_from_xml(text.data(), static_cast<uint32_t>(text.size()), &tree);
    if (tree == nullptr) std::abort();
    plist_free(tree);
}

double readWithPython(const std::string& path) {
    const std::string command =
        "python3 -c \"import plistlib, time; f = open('" + path +
        "', 'rb'); t = time.perf_counter(); plistlib.load(f); print(time.perf_counter() - t)\"";
    FILE* output = popen(command.c_str(), "r");
    if (output == nullptr) std::abort();
    double seconds = 0;
    const int read = std::fscanf(output, "%lf", &seconds);
    pclose(output);
    return read == 1 ? seconds : 0;
}

}  // namespace bracken::bench
