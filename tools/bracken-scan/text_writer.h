#pragma once

#include "tools/bracken-scan/answer.h"

namespace bracken::cli {

// For people.
class TextWriter : public AnswerWriter {
  public:
    TextWriter(Output& output, bool colored) : output_(output), colored_(colored) {}
    void table(const TableAnswer& table) override;
    void summary(const Summary& summary) override;

  private:
    // In the terminal's colour of that number.
    std::string painted(int color, std::string_view text) const;

    Output& output_;
    const bool colored_;
};

}  // namespace bracken::cli
