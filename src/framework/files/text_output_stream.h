#pragma once

#include <memory>
#include <string_view>

#include "framework/files/replacing_file.h"

namespace bracken {

// A text file being written. The bytes go to a temporary file beside the target; Close flushes,
// syncs and renames it over the target, so the target is whole at every moment: the old file until
// then, the new one after. A stream destroyed without Close, as by an exception on the way, removes
// its temporary file and leaves the target as it was. A failed write shows at Close, which then
// leaves the old file standing. Writing and closing never give up the baton.
//
// The target's mode and, where the user may do that, its owner are kept; a symbolic link is
// resolved first. Special files, and files whose folder allows no neighbour, are written in place.
class TextOutputStream {
  public:
    // `file` is not null.
    explicit TextOutputStream(std::unique_ptr<ReplacingFile> file);

    void Write(std::string_view text);
    // The text and a line feed.
    void WriteLine(std::string_view text);
    // Whether the file now holds what was written. What is written afterwards goes nowhere.
    bool Close();

  private:
    std::unique_ptr<ReplacingFile> file_;
};

}  // namespace bracken
