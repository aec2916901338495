#pragma once

namespace bracken {

// What ends a line in texts that the program writes or shows.
inline constexpr const char* EndOfLine = "\n";

}  // namespace bracken
