#pragma once

#include <string>

namespace bracken {

// The system clipboard. Main thread, holding the baton.
class Clipboard {
  public:
    // Opens the clipboard and reads its text.
    Clipboard();

    std::string Text;

    // Puts Text on the clipboard.
    void Close() const;
};

}  // namespace bracken
