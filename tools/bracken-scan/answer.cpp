#include "tools/bracken-scan/answer.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "tools/bracken-scan/json_writer.h"
#include "tools/bracken-scan/text_writer.h"
#include "tools/bracken-scan/tsv_writer.h"

namespace bracken::cli {

namespace {

std::vector<std::string_view> filesOf(const std::string& table, const Needles& needles,
                                      const Findings& findings) {
    const auto [whole, stripped] = needles.of(table);
    const auto& first = findings.filesOf(whole);
    const auto& second = findings.filesOf(stripped);
    std::vector<uint32_t> numbers;
    std::set_union(first.begin(), first.end(), second.begin(), second.end(),
                   std::back_inserter(numbers));
    std::vector<std::string_view> files;
    files.reserve(numbers.size());
    for (const uint32_t number : numbers) files.emplace_back(findings.paths()[number]);
    return files;
}

bool isColored(Color color) {
    if (color != Color::automatic) return color == Color::always;
    const char* noColor = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    return (noColor == nullptr || *noColor == '\0') && isatty(STDOUT_FILENO) != 0 &&
           terminal != nullptr && std::string_view(terminal) != "dumb";
}

}  // namespace

std::unique_ptr<AnswerWriter> AnswerWriter::make(const Options& options, Output& output) {
    if (options.format == Format::json) return std::make_unique<JsonWriter>(output);
    if (options.format == Format::tsv) return std::make_unique<TsvWriter>(output);
    return std::make_unique<TextWriter>(output, isColored(options.color));
}

void writeAnswer(const std::vector<std::string>& tables, const Needles& needles,
                 const Findings& findings, const AllowList& allowed, bool unusedOnly,
                 Summary& summary, AnswerWriter& writer) {
    for (const std::string& name : tables) {
        TableAnswer table{name, filesOf(name, needles, findings), false};
        const bool unused = table.files.empty();
        table.allowed = unused && allowed.has(name);
        summary.tables++;
        if (unused) ++(table.allowed ? summary.allowed : summary.unused);
        if (unused || !unusedOnly) writer.table(table);
    }
    writer.summary(summary);
}

}  // namespace bracken::cli
