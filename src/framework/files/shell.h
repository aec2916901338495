#pragma once

#include <chrono>
#include <string>

namespace bracken {

// Runs shell commands. Those in the program's private folder are found first, then those beside the
// program, then those on the path.
class Shell {
  public:
    // A command that takes longer than the limit is ended.
    explicit Shell(std::chrono::milliseconds limit = std::chrono::minutes(1)) : limit_(limit) {}

    // Runs `command` by /bin/sh, in a process group of its own, and returns when it has finished or
    // the group has been killed at the limit; how it ended is not reported. Never gives up the
    // baton: its only use lies within loading and saving of the settings.
    void Execute(const std::string& command);

  private:
    std::chrono::milliseconds limit_;
};

}  // namespace bracken
