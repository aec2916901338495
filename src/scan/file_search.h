#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "framework/files/file_calls.h"
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

// How much of a file is searched: what the above gives, or all of it.
enum class Extent { signed32, whole };

// Searches files piece by piece in one buffer, which is reused from file to file. For worker
// threads: never holds the baton, never touches the model.
class FileSearch {
  public:
    // Of a file to be searched whole, and no error of a system call: it ended before the length
    // that it had.
    static constexpr int shrank = -1;

    explicit FileSearch(Extent extent = Extent::signed32) : extent_(extent) {}

    // Adds the names of `matcher` that the file holds to `hits`.
    // - `path` is that of a file directly in `folder`.
    // - `listedAsFile`: the file is known to be a regular one. Other things are asked for their
    //   type first; what is neither file nor folder reads as empty.
    // - `cancelled` is asked before each piece.
    // Returns 0, or why the file was not searched to its end: the error number of the system call
    // that failed, `shrank`, or ECANCELED.
    int search(const OpenFolder& folder, const std::string& path, bool listedAsFile,
               const Matcher& matcher, const std::function<bool()>& cancelled, Matcher::Hits& hits);

    // The same if the file's beginning lies in memory; EAGAIN, with nothing searched, if the system
    // would wait for the disk. Waits all the same where the system can't say.
    int searchCached(const OpenFolder& folder, const std::string& path, bool listedAsFile,
                     const Matcher& matcher, const std::function<bool()>& cancelled,
                     Matcher::Hits& hits);

    // As `search`, of an open file, which stays open. `length` is how much of it to search, or -1
    // if that is to be asked only when it matters.
    int searchOpened(int descriptor, int64_t length, const Matcher& matcher,
                     const std::function<bool()>& cancelled, Matcher::Hits& hits);

    // How much of the latest file was searched.
    int64_t bytes() const { return bytes_; }

  private:
    // What there is of a file to search: its length, what is left of it, and how much of that to
    // read at a time.
    struct Rest {
        int64_t length;
        int64_t left;
        int64_t piece;
    };

    std::optional<int64_t> lengthOf(int descriptor) const;
    // As openat.
    Descriptor open(int folder, const char* name) const;
    // As readSome.
    int64_t readPiece(int descriptor, char* bytes, size_t count);
    void reserve(size_t size);
    // Reads the next piece to after the first `kept` bytes of the buffer, `got` bytes that are to
    // be searched, 0 at the end. Returns as `search` does.
    int readOn(int descriptor, size_t kept, Rest& rest, int64_t& got);

    const Extent extent_;
    // Memory that no file has needed yet is none.
    std::unique_ptr<char[]> buffer_;
    size_t bufferSize_ = 0;
    int64_t bytes_ = 0;
    // Until the first piece has been read.
    bool cachedOnly_ = false;
};

}  // namespace bracken
