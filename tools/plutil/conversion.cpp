#include "tools/plutil/conversion.h"

#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <vector>

namespace bracken::plutil {

namespace {

constexpr const char* identifierKey = "CF$UID";

// Null if the node is no dictionary that represents an identifier.
plist_t identifierIn(plist_t node) {
    if (plist_get_node_type(node) != PLIST_DICT || plist_dict_get_size(node) != 1) return nullptr;
    return plist_dict_get_item(node, identifierKey);
}

// False if the node represents none.
bool becomesIdentifier(plist_t node) {
    plist_t number = identifierIn(node);
    if (number == nullptr || plist_get_node_type(number) != PLIST_UINT) return false;
    uint64_t value = 0;
    plist_get_uint_val(number, &value);
    if (value > UINT32_MAX) return false;
    plist_dict_remove_item(node, identifierKey);
    plist_set_uid_val(node, value);
    return true;
}

void appendChildren(plist_t node, std::vector<plist_t>& nodes) {
    bool isArray = plist_get_node_type(node) == PLIST_ARRAY;
    void* iterator = nullptr;
    (isArray ? plist_array_new_iter : plist_dict_new_iter)(node, &iterator);
    plist_t child = nullptr;
    do {
        if (isArray) {
            plist_array_next_item(node, iterator, &child);
        } else {
            plist_dict_next_item(node, iterator, nullptr, &child);
        }
        if (child != nullptr) nodes.push_back(child);
    } while (child != nullptr);
    std::free(iterator);
}

// Makes the identifiers of a tree that was read from XML what they were in binary form. XML knows
// none: there they are dictionaries with one key, and the library leaves them so. The root stays
// what it is.
void restoreIdentifiers(plist_t root) {
    std::vector<plist_t> pending = {root};
    while (!pending.empty()) {
        plist_t node = pending.back();
        pending.pop_back();
        plist_type type = plist_get_node_type(node);
        if (type != PLIST_ARRAY && type != PLIST_DICT) continue;
        if (node == root || !becomesIdentifier(node)) appendChildren(node, pending);
    }
}

struct FreeTree {
    void operator()(void* tree) const { plist_free(tree); }
};
using Tree = std::unique_ptr<void, FreeTree>;

Tree parse(const std::string& bytes) {
    auto size = static_cast<uint32_t>(bytes.size());
    plist_t tree = nullptr;
    (isBinary(bytes) ? plist_from_bin : plist_from_xml)(bytes.data(), size, &tree);
    if (tree == nullptr) throw std::runtime_error("not a property list");
    if (!isBinary(bytes)) restoreIdentifiers(tree);
    return Tree(tree);
}

std::string formatted(const std::string& bytes, void (*format)(plist_t, char**, uint32_t*),
                      void (*release)(char*)) {
    Tree tree = parse(bytes);
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
