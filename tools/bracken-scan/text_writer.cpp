#include "tools/bracken-scan/text_writer.h"

namespace bracken::cli {

namespace {

constexpr int red = 31;
constexpr int yellow = 33;

std::string counted(uint64_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace

void TextWriter::table(const TableAnswer& table) {
    if (!table.files.empty())
        output_.line(table.name);
    else if (table.allowed)
        output_.line(painted(yellow, table.name + ": named nowhere, allowed"));
    else
        output_.line(painted(red, table.name + ": named nowhere"));
    for (const std::string_view file : table.files) output_.line("    " + std::string(file));
}

void TextWriter::summary(const Summary& summary) {
    output_.line("");
    output_.line(counted(summary.tables, "table") + ": " + std::to_string(summary.unused) +
                 " named nowhere, " + std::to_string(summary.allowed) + " more allowed to be");
    output_.line(counted(summary.files, "file") + " of " + counted(summary.bytes, "byte") +
                 " searched, " + std::to_string(summary.filtered) + " kept out by options");
    if (summary.unreadable.empty()) return;
    output_.line(painted(red, "The answer is incomplete; could not be read:"));
    for (const Unreadable& unreadable : summary.unreadable)
        output_.line("    " + unreadable.path + ": " + unreadable.reason);
}

std::string TextWriter::painted(int color, std::string_view text) const {
    if (!colored_) return std::string(text);
    return "\033[" + std::to_string(color) + "m" + std::string(text) + "\033[0m";
}

}  // namespace bracken::cli
