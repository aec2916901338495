#include "tools/bracken-scan/json_writer.h"

#include "tools/bracken-scan/json_text.h"

namespace bracken::cli {

namespace {

// [a,b,c] of what `write` gives for each.
template <class Items, class Write>
std::string array(const Items& items, const Write& write) {
    std::string text = "[";
    for (const auto& item : items) {
        if (text.size() > 1) text += ',';
        text += write(item);
    }
    return text + "]";
}

std::string objectOf(const Unreadable& unreadable) {
    return R"({"path":)" + jsonText(unreadable.path) + R"(,"reason":)" +
           jsonText(unreadable.reason) + "}";
}

std::string number(const char* name, uint64_t value) {
    return std::string(",\"") + name + "\":" + std::to_string(value);
}

}  // namespace

void JsonWriter::table(const TableAnswer& table) {
    output_.line(R"({"type":"table","name":)" + jsonText(table.name) + R"(,"files":)" +
                 array(table.files, jsonText) + R"(,"allowed":)" +
                 (table.allowed ? "true}" : "false}"));
}

void JsonWriter::summary(const Summary& summary) {
    output_.line(R"({"type":"summary")" + number("tables", summary.tables) +
                 number("unused", summary.unused) + number("allowed", summary.allowed) +
                 number("files", summary.files) + number("bytes", summary.bytes) +
                 number("filtered", summary.filtered) + R"(,"unreadable":)" +
                 array(summary.unreadable, objectOf) +
                 number("milliseconds", static_cast<uint64_t>(summary.time.count())) + "}");
}

}  // namespace bracken::cli
