#pragma once

#include "plist/plist.h"
#include "tests/support/temp_folder.h"

namespace bracken::test {

// A node and all below it in one line: {key:tag=text key:dict{...} key:array[...]}, keys of arrays
// too. A key with no value shows no "=", one with no child "!"; text is quoted when it is odd.
std::string picture(const plistDict& node);

// An empty document over a file that is not there.
struct EmptyDocument {
    plist document{GetFolderItem("/nonexistent/settings.plist", 0), nullptr};
    plistDict& root = *document.root;

    // Reads the body of a file.
    void read(std::string_view body);
    // Expects this tree and this error, "" for none, and empties the root.
    void expect(std::string_view name, std::string_view tree, std::string_view error = "");
};

// The head of a file as this program and others write it, up to the root's opening tag.
extern const std::string head;
extern const std::string foot;

}  // namespace bracken::test
