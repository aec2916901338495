#pragma once

#include <cstdint>
#include <stack>
#include <string>
#include <string_view>

#include "plist/plist_dict.h"

namespace bracken {

// Turns a node and all below it into the lines of a property list. What becomes of the lines is the
// derived class's business. Nesting costs memory, not stack.
class TreeLines {
  public:
    TreeLines() = default;
    virtual ~TreeLines() = default;
    TreeLines(const TreeLines&) = delete;
    TreeLines& operator=(const TreeLines&) = delete;

    // Goes through the node's keys, values and children, each line behind `level` tabs. The node's
    // own tags are the caller's. KeyNotFoundException for a scalar key with no value.
    void run(const plistDict& node, int32_t level);

  protected:
    virtual void line(std::string_view indent, std::string_view text) = 0;
    // Behind the line of a key.
    virtual void keyEnded(const plistDict& /*node*/, const std::string& /*key*/,
                          std::string_view /*indent*/) {}
    // In front of and behind all lines of a node.
    virtual void nodeBegins() {}
    virtual void nodeEnds() {}

  private:
    // How far one node has come, and the rest of the children of the key in hand.
    struct Level {
        Level(const plistDict& levelNode, std::string levelIndent);

        const plistDict& node;
        std::string indent;
        int nextKey = 0;
        const char* containerTag = "";
        ChildList::Walk children;
    };

    void begin(const plistDict& node, std::string indent);
    void end();
    void child(const Level& level, const plistDict& node);
    void key(Level& level);
    void scalar(const Level& level, const std::string& tag, std::string_view value);
    // The tag in the brackets of an element: `before` + tag + `after`.
    void tagLine(const Level& level, std::string_view before, std::string_view after);

    std::stack<Level> levels_;
};

}  // namespace bracken
