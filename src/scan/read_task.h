#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "scan/open_folder.h"

namespace bracken {

// A file that is searched ahead of the scan.
struct ReadTask {
    std::string path;
    bool listedAsFile;
    // Until the file has been searched, or is left to a thread that waits for the disk.
    std::shared_ptr<const OpenFolder> folder;
    // Why it could not be read, 0 if it was.
    int error = 0;
    // Names found, by their numbers.
    std::vector<uint32_t> names;
    // Set after the two above.
    std::atomic<bool> done{false};
};

}  // namespace bracken
