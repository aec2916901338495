#include "bench/xml_libraries.h"

#include <plist/plist.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace bracken::bench {

Libplist::~Libplist() {
    plist_free(tree_);
}

void Libplist::read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    const std::string text = bytes.str();
    plist_from_xml(text.data(), static_cast<uint32_t>(text.size()), &tree_);
    if (tree_ == nullptr) std::abort();
}

void Libplist::write(const std::string& path) const {
    char* text = nullptr;
    uint32_t size = 0;
    plist_to_xml(tree_, &text, &size);
    if (text == nullptr) std::abort();
    std::ofstream(path, std::ios::binary).write(text, size);
    plist_to_xml_free(text);
}

PythonTimes timePython(const std::string& path) {
    static const char* const program = R"(
import math, plistlib, sys, time
def best(work):
    times = []
    for _ in range(2):
        start = time.perf_counter()
        try: work()
        except RecursionError: return math.nan
        times.append(time.perf_counter() - start)
    return min(times)
def read():
    global tree
    with open(sys.argv[1], 'rb') as file: tree = plistlib.load(file)
def write():
    with open(sys.argv[1] + ' other', 'wb') as file: plistlib.dump(tree, file, sort_keys=False)
print(best(read), best(write))
)";
    const std::string command = "python3 -c \"" + std::string(program) + "\" '" + path + "'";
    FILE* output = popen(command.c_str(), "r");
    if (output == nullptr) std::abort();
    PythonTimes times;
    const int read = std::fscanf(output, "%lf %lf", &times.read, &times.write);
    if (pclose(output) != 0 || read != 2) std::abort();
    return times;
}

}  // namespace bracken::bench
