#pragma once

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include "framework/exception.h"

namespace bracken {

// Whether the error number of a system call means that there is nothing at a path, rather than that
// what is there can't be reached.
inline bool isAbsence(int error) {
    return error == ENOENT || error == ENOTDIR || error == ELOOP;
}

// Something is there and can't be read whole: a folder that can't be listed, an entry whose type
// can't be asked, a file that can't be read. Uncaught, it is reported like the nil object that an
// absent one gives.
class UnreadableException : public NilObjectException {
  public:
    // `error` is the error number of the system call that failed.
    UnreadableException(std::string path, int error)
        : NilObjectException(path + ": " + std::generic_category().message(error)),
          path_(std::move(path)),
          error_(error) {}

    const std::string& path() const { return path_; }
    int error() const { return error_; }
    // The system's message for the error.
    std::string reason() const { return std::generic_category().message(error_); }

  private:
    std::string path_;
    int error_;
};

}  // namespace bracken
