#pragma once

#include <stdexcept>

namespace bracken::cli {

// How the process ends when all has been read.
struct Status {
    static constexpr int allNamed = 0;
    static constexpr int someUnused = 1;
    // Wrong use, or something could not be read.
    static constexpr int failed = 2;
    static constexpr int interrupted = 130;
    static constexpr int closedPipe = 141;
};

// Ends the process with Status::failed; the text is for people.
class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// A Failure that --help would have prevented.
class WrongUse : public Failure {
  public:
    using Failure::Failure;
};

}  // namespace bracken::cli
