#include "tools/plutil/identifiers.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

namespace bracken::plutil {

namespace {

constexpr const char* identifierKey = "CF$UID";

// Null if the node is no dictionary that stands for an identifier.
plist_t identifierIn(plist_t node) {
    if (plist_get_node_type(node) != PLIST_DICT || plist_dict_get_size(node) != 1) return nullptr;
    return plist_dict_get_item(node, identifierKey);
}

// False if the node stands for none.
bool becomesIdentifier(plist_t node) {
    const plist_t number = identifierIn(node);
    if (number == nullptr || plist_get_node_type(number) != PLIST_UINT) return false;
    uint64_t value = 0;
    plist_get_uint_val(number, &value);
    if (value > UINT32_MAX) return false;
    plist_dict_remove_item(node, identifierKey);
    plist_set_uid_val(node, value);
    return true;
}

void appendChildren(plist_t node, std::vector<plist_t>& nodes) {
    const bool isArray = plist_get_node_type(node) == PLIST_ARRAY;
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

}  // namespace

void restoreIdentifiers(plist_t root) {
    std::vector<plist_t> pending = {root};
    while (!pending.empty()) {
        const plist_t node = pending.back();
        pending.pop_back();
        const plist_type type = plist_get_node_type(node);
        if (type != PLIST_ARRAY && type != PLIST_DICT) continue;
        if (node == root || !becomesIdentifier(node)) appendChildren(node, pending);
    }
}

}  // namespace bracken::plutil
