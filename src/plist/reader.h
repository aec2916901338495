#pragma once

#include <memory>
#include <stack>
#include <string>
#include <string_view>

#include "framework/files/streams.h"
#include "plist/plist_dict.h"

namespace bracken {

// Reads the body of a property list line by line. It is no XML reader: it knows a handful of tag
// shapes and takes everything else by position. It reports nothing; a malformed body gives a tree
// of odd shape. Nesting costs memory, not stack.
class Reader {
  public:
    explicit Reader(TextInputStream& stream) : stream_(stream) {}

    // Reads into `node` up to its end tag or the end of the stream.
    void read(plistDict& node);

  private:
    // Reading of one node. `current` is the field in hand, a piece of `line`, and stays what the
    // last field left of it while the next line is read.
    struct Level {
        explicit Level(plistDict& levelNode, Ref<plistDict> kept = nullptr);

        plistDict& node;
        // A list without its element zero takes a node for that one, and drops it.
        Ref<plistDict> keptNode;
        std::string_view endTag;
        std::string line;
        size_t nextField = 0;
        std::string_view current;
        std::string key;
        std::string tag;
        std::string type;
        std::string accumulator;
        // Within a value that spans lines.
        bool multiLine = false;
        bool selfClosed = false;
    };

    bool ended(const Level& level) const;
    void nextLine(Level& level);
    // The next field of the line becomes the current one; false behind the last.
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
