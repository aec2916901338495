#pragma once

#include <string>

namespace bracken {

// Opens a file in the program that the desktop has for https addresses, the default web browser; if
// there is none, or it doesn't start, in what the desktop opens the file with. Waits for neither.
void openInBrowser(const std::string& path);

}  // namespace bracken
