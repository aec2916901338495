#include <gtest/gtest.h>

#include <random>

#include "tests/plist/steps.h"

namespace bracken {
namespace {

class RandomChoices : public test::Choices {
  public:
    RandomChoices(unsigned seed, int count) : random_(seed), left_(count) {}
    int below(int count) override {
        --left_;
        return static_cast<int>(random_() % static_cast<unsigned>(count));
    }
    bool atEnd() override { return left_ <= 0; }

  private:
    std::mt19937 random_;
    int left_;
};

// Of the suite's run, which a failure's output names.
unsigned seedOf(unsigned round) {
    return static_cast<unsigned>(testing::UnitTest::GetInstance()->random_seed()) * 100000 + round;
}

TEST(Model, ActsAsTheStoreInEverySequence) {
    for (unsigned round = 0; round < 80; ++round) {
        const auto difference = [&] {
            RandomChoices choices(seedOf(round), 2500);
            return test::differenceInPlay(choices);
        };
        // A date that can't be read is the present moment, which may be a second later for one of
        // the two.
        const std::string last = difference().empty() ? "" : difference();
        ASSERT_EQ(last, "") << "seed " << seedOf(round);
    }
}

TEST(Model, ReadsAnyTextAsTheStoreDoes) {
    for (unsigned round = 0; round < 4000; ++round) {
        RandomChoices choices(seedOf(round), 1);
        const std::string text = test::anyText(choices, 1 + choices.below(30));
        ASSERT_EQ(test::differenceInReading(text), "") << "seed " << seedOf(round) << "\n" << text;
    }
}

}  // namespace
}  // namespace bracken
