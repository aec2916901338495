#pragma once

#include <chrono>
#include <string>

namespace bracken {

// Runs shell commands. Those in the program's private folder are found first, then those in the
// program's own folder, then those on the path.
class Shell {
  public:
    // A command that takes longer than the limit is killed.
    explicit Shell(std::chrono::milliseconds limit = std::chrono::minutes(1)) : limit_(limit) {}

    // Runs `command` by /bin/sh, in a process group of its own, and returns when it has finished or
    // the group has been killed at the limit; its status is not reported. Never releases the baton:
    // it is used only while settings are loaded and saved.
    void Execute(const std::string& command);

  private:
    std::chrono::milliseconds limit_;
};

}  // namespace bracken
