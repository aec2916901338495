#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "scan/matcher.h"
#include "scan/open_folder.h"

namespace bracken {

// Whether a file of that name is to be searched: its last dot-separated field, the whole name where
// it has no dot, must lie somewhere inside the extension list, which is not split at its commas; an
// empty list lets every file pass. So with "php,cgi" also a.c and a.h pass.
bool passesExtensions(std::string_view fileName, std::string_view extensions);

// How much of a file of that length is searched: the low 32 bits of the length as a signed number,
// nothing for a negative one. So a file of 2 to 4 GiB is not searched.
int64_t searchedLength(uint64_t fileLength);

// Searches files piece by piece in one buffer, which is reused from file to file. For worker
// threads: never holds the baton, never touches the model.
class FileSearch {
  public:
    // Adds the names of `matcher` that the file holds to `hits`.
    // - `path` is that of a file directly in `folder`.
    // - `listedAsFile`: the file is known to be a regular one. Other things are asked for their
    //   type first; what is neither file nor folder reads as empty.
    // - `cancelled` is asked before each piece.
    // Returns 0, or why the file was not searched to its end: the error number of the system call
    // that failed, or ECANCELED.
    int search(const OpenFolder& folder, const std::string& path, bool listedAsFile,
               const Matcher& matcher, const std::function<bool()>& cancelled, Matcher::Hits& hits);

    // The same of an open file, which stays open. `length` is how much of it to search, or -1 if
    // that is to be asked only when it matters.
    int searchOpened(int descriptor, int64_t length, const Matcher& matcher,
                     const std::function<bool()>& cancelled, Matcher::Hits& hits);

  private:
    std::vector<char> buffer_;
};

}  // namespace bracken
