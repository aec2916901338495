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
    // How far one node has come, and the next child of the key in hand.
    struct Level {
        explicit Level(const plistDict& levelNode) : node(levelNode) {}

        const plistDict& node;
        int nextKey = 0;
        // Where the next value stands if values have come in the order of their keys, as is usual.
        int nextValue = 0;
        const char* containerTag = "";
        // The position of the next one, 0 for none.
        int nextChild = 0;
    };

    void begin(const plistDict& node);
    void end();
    void child(const plistDict& node);
    void key(Level& level);
    static const std::string& valueOf(Level& level, const std::string& key);
    void scalar(const std::string& tag, std::string_view value);
    void indented(std::string_view text) { line(indent(), text); }
    // The tag of the container in hand in the brackets of an element: `before` + tag + `after`.
    void tagLine(std::string_view before, std::string_view after);
    // Of the node in hand.
    std::string_view indent();

    int64_t topIndent_ = 0;
    // As many as the deepest line so far has in front.
    std::string tabs_;
    std::stack<Level> levels_;
};

}  // namespace bracken
