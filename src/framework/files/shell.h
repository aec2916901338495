#pragma once

#include <string>

namespace bracken {

// Runs shell commands. Commands installed beside the program are found ahead of those on the path.
class Shell {
  public:
    // Runs `command` by /bin/sh and returns when it has finished; how it ended is not told. Never
    // gives up the baton: its only use lies within loading and saving of the settings.
    void Execute(const std::string& command);
};

}  // namespace bracken
