#include "framework/files/unreadable.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace bracken {

bool isAbsence(int error) {
    return error == ENOENT || error == ENOTDIR || error == ELOOP;
}

UnreadableException::UnreadableException(std::string path, int error)
    : NilObjectException(path + ": " + std::generic_category().message(error)),
      path_(std::move(path)),
      error_(error) {}

std::string UnreadableException::reason() const {
    return std::generic_category().message(error_);
}

}  // namespace bracken
