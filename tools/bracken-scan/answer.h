#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tools/bracken-scan/allow_list.h"
#include "tools/bracken-scan/findings.h"
#include "tools/bracken-scan/needles.h"
#include "tools/bracken-scan/options.h"
#include "tools/bracken-scan/output.h"

namespace bracken::cli {

// What is said of one table.
struct TableAnswer {
    const std::string& name;
    // In byte order.
    std::vector<std::string_view> files;
    // It may be unused, and is.
    bool allowed;
};

// What is said of all together.
struct Summary {
    uint64_t tables = 0;
    // Without the allowed ones.
    uint64_t unused = 0;
    uint64_t allowed = 0;
    // What was searched.
    uint64_t files = 0;
    uint64_t bytes = 0;
    // Files kept out by options.
    uint64_t filtered = 0;
    std::vector<Unreadable> unreadable;
    std::chrono::milliseconds time{0};
};

// One form of the answer.
class AnswerWriter {
  public:
    virtual ~AnswerWriter() = default;
    virtual void table(const TableAnswer& table) = 0;
    virtual void summary(const Summary& summary) = 0;

    // The one that was asked for. `output` outlives it.
    static std::unique_ptr<AnswerWriter> make(const Options& options, Output& output);
};

// Writes what was found of each table, of the unused ones only if `unusedOnly`, then the summary,
// into which it counts them.
void writeAnswer(const std::vector<std::string>& tables, const Needles& needles,
                 const Findings& findings, const AllowList& allowed, bool unusedOnly,
                 Summary& summary, AnswerWriter& writer);

}  // namespace bracken::cli
