#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "plist/plist.h"
#include "tests/support/temp_folder.h"

namespace bracken::test {

// A node and all below it in one line: {key:tag=text key:dict{...} key:array[...]}, keys of arrays
// too. A key with no value shows no "=", one with no child "!"; text is quoted when it is odd.
std::string picture(const plistDict& node);

// The tree that this body of a file gives, with `document` as its document.
Ref<plistDict> readBody(std::string_view body, plist* document = nullptr);

// An empty document over a file that is not there, in a folder of its own.
struct EmptyDocument {
    TempFolder folder;
    plist document{GetFolderItem(folder.path("settings.plist"), 0), nullptr};
    plistDict& root = *document.root;
};

// The head of a file as this program and others write it, up to the root's opening tag.
extern const std::string_view head;
extern const std::string_view foot;

}  // namespace bracken::test
