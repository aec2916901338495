#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace bracken::test {

// Starts a program found on the PATH, which ends with this process. Its standard output goes to
// `output`, to nowhere if that is -1; the caller waits for its end. Must be called on the main
// thread.
pid_t spawn(const std::vector<std::string>& command, int output);

// Runs a program to its end and gives what it wrote to standard output. Throws std::runtime_error
// if it fails.
std::string outputOf(const std::vector<std::string>& command);

// Runs a program to its end with its standard output thrown away. Throws std::runtime_error if it
// fails.
void runToNowhere(const std::vector<std::string>& command);

}  // namespace bracken::test
