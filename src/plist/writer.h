#pragma once

#include <cstdint>
#include <stack>
#include <string>
#include <string_view>

#include "framework/files/text_output_stream.h"
#include "plist/plist_dict.h"

namespace bracken {

// Writes nodes as the lines of a property list. Nesting costs memory, not stack.
class Writer {
  public:
    explicit Writer(TextOutputStream& stream) : stream_(stream) {}

    // The node's keys, values and children, each line behind `level` tabs. The node's own tags are
    // the caller's. KeyNotFoundException for a scalar key with no value.
    void write(const plistDict& node, int32_t level);

  private:
    // Writing of one node: how far it has come, and the rest of the children of the key in hand.
    struct Level {
        Level(const plistDict& levelNode, std::string levelIndent);

        const plistDict& node;
        std::string indent;
        int nextKey = 0;
        const char* containerTag = "";
        ChildList::Walk children;
    };

    void writeChild(const Level& level, const plistDict& child);
    void writeKey(Level& level);
    void writeScalar(const Level& level, const std::string& tag, std::string_view value);
    void line(const Level& level, std::string_view text);
    // The tag in the brackets of an element: `before` + tag + `after`.
    void tagLine(const Level& level, std::string_view before, std::string_view after);

    TextOutputStream& stream_;
    std::stack<Level> levels_;
};

}  // namespace bracken
