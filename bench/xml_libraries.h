#pragma once

#include <string>

// Other readers and writers of property lists, to compare with.
namespace bracken::bench {

// A tree of libplist's.
class Libplist {
  public:
    Libplist() = default;
    ~Libplist();
    Libplist(const Libplist&) = delete;
    Libplist& operator=(const Libplist&) = delete;

    // Reads an XML file from the disk. To be called once.
    void read(const std::string& path);
    void write(const std::string& path) const;

  private:
    void* tree_ = nullptr;
};

// What Python's plistlib takes to read the file from the disk and to write it beside, in seconds,
// the better of two tries each, not a number for what nests too deeply; the interpreter's start is
// not counted.
struct PythonTimes {
    double read = 0;
    double write = 0;
};
PythonTimes timePython(const std::string& path);

}  // namespace bracken::bench
