#pragma once

#include <string>

namespace bracken {

// Runs shell commands. Those in the program's private folder are found first, then those beside the
// program, then those on the path.
class Shell {
  public:
    // Runs `command` by /bin/sh and returns when it has finished; how it ended is not told. Never
    // gives up the baton: its only use lies within loading and saving of the settings.
    void Execute(const std::string& command);
};

}  // namespace bracken
