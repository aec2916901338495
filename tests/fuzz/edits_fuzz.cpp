#include <fuzzer/FuzzedDataProvider.h>

#include <cstdio>
#include <cstdlib>

#include "tests/plist/steps.h"

namespace {

class FuzzedChoices : public bracken::test::Choices {
  public:
    FuzzedChoices(const uint8_t* data, size_t size) : input_(data, size) {}
    int below(int count) override { return input_.ConsumeIntegralInRange(0, count - 1); }
    bool atEnd() override { return input_.remaining_bytes() == 0; }

  private:
    FuzzedDataProvider input_;
};

std::string difference(const uint8_t* data, size_t size) {
    FuzzedChoices choices(data, size);
    return bracken::test::differenceInPlay(choices);
}

}  // namespace

// Any sequence of operations does to the store what it does to the model.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // The present moment, where a date can't be read, may be a second later for one of the two.
    if (difference(data, size).empty() || difference(data, size).empty()) return 0;
    std::fputs(difference(data, size).c_str(), stderr);
    std::abort();
}
