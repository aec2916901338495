#pragma once

#include <string>
#include <string_view>

namespace bracken::cli {

// Standard output, in whole lines: an interrupt ends the process after one, and a pipe that nobody
// reads any more with Status::closedPipe. A write that fails otherwise is a Failure.
class Output {
  public:
    // Adds the line and its end.
    void line(std::string_view text);
    // Writes what is still held back.
    void flush();

  private:
    void write(std::string_view text);

    std::string held_;
};

}  // namespace bracken::cli
