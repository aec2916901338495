#include "tools/bracken-scan/lines.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "tools/bracken-scan/failure.h"

namespace bracken::cli {

namespace {

Failure failure(const std::string& path) {
    return Failure(path + ": " + std::generic_category().message(errno));
}

std::string readAll(int descriptor, const std::string& path) {
    constexpr size_t block = size_t{64} * 1024;
    std::string text;
    while (true) {
        const size_t size = text.size();
        text.resize(size + block);
        const ssize_t got = read(descriptor, text.data() + size, block);
        text.resize(size + static_cast<size_t>(std::max<ssize_t>(got, 0)));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) throw failure(path);
        if (got == 0) return text;
    }
}

}  // namespace

std::string readFile(const std::string& path) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) throw failure(path);
    std::string text = readAll(descriptor, path);
    close(descriptor);
    return text;
}

std::string readStandardInput() {
    return readAll(STDIN_FILENO, "standard input");
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (!line.empty()) lines.push_back(line);
    }
    return lines;
}

}  // namespace bracken::cli
