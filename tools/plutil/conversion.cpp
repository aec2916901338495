#include "tools/plutil/conversion.h"

#include <plist/plist.h>

#include <memory>
#include <stdexcept>

#include "tools/plutil/identifiers.h"

namespace bracken::plutil {

namespace {

struct FreeTree {
    void operator()(void* tree) const { plist_free(tree); }
};
using Tree = std::unique_ptr<void, FreeTree>;

Tree parse(const std::string& bytes) {
    const auto size = static_cast<uint32_t>(bytes.size());
    plist_t tree = nullptr;
    (isBinary(bytes) ? plist_from_bin : plist_from_xml)(bytes.data(), size, &tree);
    if (tree == nullptr) throw std::runtime_error("not a property list");
    if (!isBinary(bytes)) restoreIdentifiers(tree);
    return Tree(tree);
}

std::string formatted(const std::string& bytes, void (*format)(plist_t, char**, uint32_t*),
                      void (*release)(char*)) {
    const Tree tree = parse(bytes);
    char* text = nullptr;
    uint32_t size = 0;
    format(tree.get(), &text, &size);
    if (text == nullptr) throw std::runtime_error("has values of no such form");
    std::string result(text, size);
    release(text);
    return result;
}

}  // namespace

bool isBinary(const std::string& bytes) {
    return bytes.starts_with("bplist");
}

std::string toXml(const std::string& bytes) {
    return formatted(bytes, plist_to_xml, plist_to_xml_free);
}

std::string toBinary(const std::string& bytes) {
    return formatted(bytes, plist_to_bin, plist_to_bin_free);
}

}  // namespace bracken::plutil
