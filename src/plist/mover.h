#pragma once

#include <optional>
#include <string>
#include <vector>

#include "framework/ref.h"
#include "plist/plist_dict.h"

namespace bracken {

// Copies a key with all that is below it from one node to another. Nesting costs memory, not stack.
class Mover {
  public:
    // False, with an error, if there is no destination or no such key. StackOverflowException for a
    // container copied into itself.
    bool copy(plistDict& source, const std::string& key, const Ref<plistDict>& destination,
              const std::string& target);

  private:
    // A container whose keys, from its cursor on, are copied to `to`.
    struct Level {
        Ref<plistDict> from;
        Ref<plistDict> to;
    };

    bool copyKey(plistDict& source, const std::string& key, const Ref<plistDict>& destination,
                 const std::string& target);
    void beginContainer(plistDict& source, const std::string& key,
                        const Ref<plistDict>& destination, const std::string& target);
    void copyLevels();

    std::vector<Level> levels_;
    size_t maxDepth_ = 0;
};

}  // namespace bracken
