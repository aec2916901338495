#pragma once

#include <memory>
#include <stack>
#include <string>
#include <string_view>

#include "framework/files/streams.h"
#include "plist/plist_dict.h"

namespace bracken {

// Reads the body of a property list line by line. It is no XML parser: it recognises a few forms of
// tags and takes everything else by position. It reports no errors; a malformed body results in an
// odd tree. Nesting costs memory, not stack.
class Reader {
  public:
    explicit Reader(TextInputStream& stream) : stream_(stream) {}

    // Reads into `node` up to its end tag or the end of the stream.
    void read(plistDict& node);

  private:
    // A node being read. `current` is the current field, a part of `line`. While the next line is
    // read it stays as handling the last field left it.
    struct Level {
        explicit Level(plistDict& levelNode, Ref<plistDict> owned = nullptr);

        plistDict& node;
        // A list of children without its element 0 uses the node in place of that one, and drops
        // it.
        Ref<plistDict> ownedNode;
        std::string_view endTag;
        std::string line;
        size_t nextField = 0;
        std::string_view current;
        std::string key;
        std::string tag;
        std::string type;
        std::string accumulator;
        // Inside a value that spans lines.
        bool multiLine = false;
        bool selfClosed = false;
    };

    bool ended(const Level& level) const;
    void nextLine(Level& level);
    // Moves to the next field of the line; false after the last one.
    static bool nextField(Level& level);
    void handleField(Level& level);

    static void handleKey(Level& level);
    static void handleContinuation(Level& level);
    // False if the field has no tag.
    static bool handleTag(Level& level);
    static void handleClosing(Level& level);
    static void handleOpening(Level& level);
    static void handleScalar(Level& level);
    void beginChild(Level& level);

    static void storeBoolean(Level& level, const char* value);
    static void storeAccumulator(Level& level);

    TextInputStream& stream_;
    std::stack<Level> levels_;
};

}  // namespace bracken
