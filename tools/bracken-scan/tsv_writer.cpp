#include "tools/bracken-scan/tsv_writer.h"

namespace bracken::cli {

namespace {

std::string escaped(std::string_view text) {
    std::string result;
    for (const char byte : text) {
        if (byte == '\\')
            result += "\\\\";
        else if (byte == '\t')
            result += "\\t";
        else if (byte == '\n')
            result += "\\n";
        else if (byte == '\r')
            result += "\\r";
        else
            result += byte;
    }
    return result;
}

}  // namespace

void TsvWriter::table(const TableAnswer& table) {
    const std::string start = escaped(table.name) + "\t";
    if (table.files.empty()) output_.line(start);
    for (const std::string_view file : table.files) output_.line(start + escaped(file));
}

}  // namespace bracken::cli
