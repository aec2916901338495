#include "tests/scan/plain_scan.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace bracken::test {

namespace {

namespace fs = std::filesystem;

std::string lower(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return text;
}

bool holds(const std::string& text, const std::string& piece) {
    return !piece.empty() && lower(text).find(lower(piece)) != std::string::npos;
}

class PlainScan {
  public:
    PlainScan(std::string extensions, const std::vector<std::string>& tables)
        : extensions_(std::move(extensions)), tables_(tables), rows(tables.size()) {}

    void walk(const fs::path& folder) {
        // A link back up the way has no entries; a real folder always has its own.
        const bool above = !chain_.insert(fs::canonical(folder)).second;
        if (above && fs::is_symlink(folder)) return;
        std::vector<fs::path> entries(fs::directory_iterator(folder), {});
        std::sort(entries.begin(), entries.end(),
                  [](auto& a, auto& b) { return a.native() < b.native(); });
        for (const fs::path& entry : entries) {
            if (fs::is_directory(entry))
                walk(entry);
            else if (fs::exists(entry))
                search(entry);
        }
        if (!above) chain_.erase(fs::canonical(folder));
    }

  private:
    void search(const fs::path& file) {
        const std::string name = file.filename();
        const std::string extension = name.substr(name.rfind('.') + 1);
        if (!extensions_.empty() && !holds(extensions_, extension)) return;
        std::string text;
        if (fs::is_regular_file(file)) {
            std::ifstream stream(file, std::ios::binary);
            text.assign(std::istreambuf_iterator<char>(stream), {});
        }
        for (size_t row = 0; row < tables_.size(); row++) {
            if (!holds(text, tables_[row])) continue;
            Found& found = rows[row];
            if (found.names == "Not Found Yet") found.names = "";
            if (holds(found.names, name)) continue;
            found.names += name + ",";
            found.paths += file.string() + ",";
        }
    }

    const std::string extensions_;
    const std::vector<std::string>& tables_;
    std::set<fs::path> chain_;

  public:
    std::vector<Found> rows;
};

}  // namespace

std::vector<Found> plainScan(const std::string& folder, const std::string& extensions,
                             const std::vector<std::string>& tables) {
    PlainScan scan(extensions, tables);
    scan.walk(folder);
    return scan.rows;
}

}  // namespace bracken::test
