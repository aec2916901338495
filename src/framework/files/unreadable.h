#pragma once

#include <string>

#include "framework/exception.h"

namespace bracken {

// Whether the error number of a system call means that there is nothing at a path, rather than that
// what is there can't be reached.
bool isAbsence(int error);

// Something is there and can't be seen whole: a folder that can't be listed, an entry whose type
// can't be asked, a file that can't be read. Reported as the nil object that it gives.
class UnreadableException : public NilObjectException {
  public:
    // `error` is the error number of the system call that failed.
    UnreadableException(std::string path, int error);

    const std::string& path() const { return path_; }
    int error() const { return error_; }
    // The system's words for the error.
    std::string reason() const;

  private:
    std::string path_;
    int error_;
};

}  // namespace bracken
