#pragma once

#include "tools/bracken-scan/answer.h"

namespace bracken::cli {

// An object a line: one for each table, then the summary.
class JsonWriter : public AnswerWriter {
  public:
    explicit JsonWriter(Output& output) : output_(output) {}
    void table(const TableAnswer& table) override;
    void summary(const Summary& summary) override;

  private:
    Output& output_;
};

}  // namespace bracken::cli
