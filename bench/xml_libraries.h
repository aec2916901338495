#pragma once

#include <string>

// Other readers of property lists, to compare with.
namespace bracken::bench {

// Reads the file from the disk into a tree and drops that.
void readWithLibplist(const std::string& path);
// The time in seconds that Python's plistlib takes for the same, the interpreter's start not
// counted.
double readWithPython(const std::string& path);

}  // namespace bracken::bench
