#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace bracken::cli {

// All bytes of a file; Failure if it can't be read to its end.
std::string readFile(const std::string& path);
std::string readStandardInput();

// The lines that are not empty, without their ends, LF or CR LF.
std::vector<std::string_view> linesOf(std::string_view text);

}  // namespace bracken::cli
