#pragma once

#include <cstdint>
#include <stack>
#include <string>
#include <string_view>

#include "plist/plist_dict.h"

namespace bracken {

// Converts a node and all below it to the lines of a property list, which a derived class receives.
// Nesting costs memory, not stack.
class TreeLines {
  public:
    TreeLines() = default;
    virtual ~TreeLines() = default;
    TreeLines(const TreeLines&) = delete;
    TreeLines& operator=(const TreeLines&) = delete;

    // The lines of the node's keys, values and children, indented by at least `level` tabs, without
    // the node's own tags. KeyNotFoundException for a scalar key with no value.
    void run(const plistDict& node, int32_t level);

  protected:
    virtual void line(std::string_view indent, std::string_view text) = 0;
    // After the line of a key.
    virtual void keyEnded(const plistDict& /*node*/, const std::string& /*key*/,
                          std::string_view /*indent*/) {}
    // Before and after all lines of a node.
    virtual void nodeBegins() {}
    virtual void nodeEnds() {}

  private:
    // The progress in one node, and the next child of its current key.
    struct Level {
        explicit Level(const plistDict& levelNode) : node(levelNode) {}

        const plistDict& node;
        int nextKey = 0;
        // Position of the next value if values are in the order of their keys, as is usual.
        int nextValue = 0;
        const char* containerTag = "";
        // Its position, 0 for none.
        int nextChild = 0;
    };

    void begin(const plistDict& node);
    void end();
    void child(const plistDict& node);
    void key(Level& level);
    static const std::string& valueOf(Level& level, const std::string& key);
    void scalar(const std::string& tag, std::string_view value);
    void indented(std::string_view text) { line(indent(), text); }
    // The line of the current container's tag: `before` + tag + `after`.
    void tagLine(std::string_view before, std::string_view after);
    // Of the current node.
    std::string_view indent();

    int64_t topIndent_ = 0;
    // As many as the deepest line so far is indented by.
    std::string tabs_;
    std::stack<Level> levels_;
};

}  // namespace bracken
