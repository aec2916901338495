#include <random>

#include "framework/controls/buttons.h"
#include "framework/controls/listbox.h"
#include "framework/controls/plain_controls.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

// A splitter with some controls around it, on which random steps are taken.
class RandomWalk : public SplitterTest {
  protected:
    int between(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }
    template <class T>
    void addOne(const std::string& name) {
        T& control = add<T>(name, between(0, 550), between(1, 200));
        control.LockRight = control.LockBottom = between(0, 1) == 1;
        controls.push_back(&control);
    }
    RectControl* any() { return controls[static_cast<size_t>(between(0, 2))]; }

    void step() {
        const std::function<void()> steps[] = {
            [&] { splitter.attach(any()); },
            [&] { splitter.unAttach(any(), true); },
            [&] { splitter.setMinLimit(between(0, 250)); },
            [&] { splitter.setMaxLimit(between(250, 700)); },
            [&] { splitter.setMinLimitOffset(between(-5, 99)); },
            [&] { splitter.setMaxLimitOffset(between(-5, 99)); },
            [&] { splitter.setProportion(between(-2, 12) / 10.0); },
            [&] { splitter.setMinAttachedControl(any(), false); },
            [&] { splitter.setAttachedControlMinSizeVisible(any(), between(0, 40)); },
            [&] { splitter.setAttachedControlShouldCenter(any(), between(0, 1) == 1); },
            [&] { resizeWindow(between(100, 1200)); },
        };
        steps[static_cast<size_t>(between(0, std::size(steps) - 1))]();
        splitter.moveDistance(between(-300, 300), false);
    }

    // Within the limits unless they cross, and in no zone unless they overlap.
    void checkPlace() {
        const int low = splitter.MinLimit;
        const int high = splitter.MaxLimit;
        ASSERT_LE(at(splitter), high);
        ASSERT_TRUE(at(splitter) >= low || low > high);
        if (Probe::snapped(splitter) ||
            low + splitter.MinLimitOffset > high - splitter.MaxLimitOffset)
            return;
        ASSERT_GE(at(splitter), low + splitter.MinLimitOffset);
        ASSERT_LE(at(splitter), high - splitter.MaxLimitOffset);
    }

    std::mt19937 random{static_cast<unsigned>(testing::UnitTest::GetInstance()->random_seed())};
    std::vector<RectControl*> controls;
};
INSTANTIATE_TEST_SUITE_P(Both, RandomWalk, testing::Bool(), orientationName);

TEST_P(RandomWalk, StaysBetweenTheLimitsAndShowsNothingTooSmall) {
    addOne<Listbox>("list");
    addOne<PushButton>("button");
    addOne<GroupBox>("box");
    splitter.Moved = [&](int /*distance*/) {
        for (const auto& entry : Probe::attached(splitter))
            EXPECT_TRUE(!entry.control->Visible ||
                        extent(*entry.control) >= std::max(1, entry.minSizeVisible));
    };
    for (int i = 0; i < 5000 && !HasFailure(); ++i) {
        step();
        checkPlace();
    }
}

}  // namespace
}  // namespace bracken::test
