#pragma once

#include "tools/bracken-scan/answer.h"

namespace bracken::cli {

// A line for each pair of table and file, or for a table that nothing names.
class TsvWriter : public AnswerWriter {
  public:
    explicit TsvWriter(Output& output) : output_(output) {}
    void table(const TableAnswer& table) override;
    void summary(const Summary& /*summary*/) override {}

  private:
    Output& output_;
};

}  // namespace bracken::cli
