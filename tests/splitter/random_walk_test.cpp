#include <algorithm>
#include <array>
#include <random>

#include "framework/controls/check_box.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/group_box.h"
#include "framework/controls/listbox.h"
#include "framework/controls/push_button.h"
#include "framework/controls/static_text.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

using Probe = SmartSplitterProbe;

// A stage with a splitter, a dozen controls around it and a parallel splitter, on which steps are
// taken at random. After each step everything that must hold is looked at.
class Walk {
  public:
    explicit Walk(uint64_t seed) : random_(seed), vertical_(chance(2)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        addControls();
        splitter_ = &stage_.add<SmartSplitter>("splitter", vertical_, {between(150, 450), 10});
        presetDesign();
        splitter_->Moved = [this](int /*distance*/) { checkAdjusted(); };
        splitter_->Event_Open();
        if (chance(2)) addParallel();
    }

    // Returns the number of steps taken: fewer if the arrangement runs away, as some do whose
    // limits depend on what they push.
    int run(int steps) {
        int taken = 0;
        while (taken < steps && !testing::Test::HasFailure() && !ranAway()) {
            step(between(0, 19));
            checkAlways();
            ++taken;
        }
        return taken;
    }

  private:
    const Axis& axis() const { return vertical_ ? Axis::across() : Axis::down(); }
    int between(int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random_);
    }
    bool chance(int oneIn) { return between(1, oneIn) == 1; }

    template <class T>
    void addOne(const std::string& name) {
        auto& made = stage_.add<T>(name, vertical_, {between(0, 550), between(1, 200)});
        made.LockLeft = chance(2);
        made.LockRight = chance(2);
        made.LockTop = chance(2);
        made.LockBottom = chance(2);
        controls_.push_back(&made);
    }

    void addControls() {
        addOne<Listbox>("list");
        addOne<PushButton>("button");
        addOne<EditField>("field");
        addOne<GroupBox>("box");
        addOne<CheckBox>("check");
        addOne<StaticText>("label");
        addOne<Canvas>("canvas");
        addOne<RectControl>("plain");
        addOne<PushButton>("inner");
        controls_.back()->Parent = controls_[3];
    }

    void addParallel() {
        auto& parallel = stage_.add<SmartSplitter>("parallel", vertical_, {between(500, 550), 10});
        auto& pane = stage_.add<RectControl>("pane", vertical_, {560, 30});
        parallel.Open = [&] { parallel.attach(&pane); };
        parallel.Event_Open();
        splitter_->attach(&parallel);
    }

    void presetDesign() {
        if (chance(3)) splitter_->MinLimit = between(1, 200);
        if (chance(3)) splitter_->MaxLimit = between(300, 600);
        if (chance(3)) splitter_->MinLimitOffset = between(0, 90);
        if (chance(3)) splitter_->MaxLimitOffset = between(0, 90);
        splitter_->StayProportional = chance(3);
        splitter_->StopAtMinOffset = chance(4);
        splitter_->StopAtMaxOffset = chance(4);
        splitter_->DisableLiveDrag = chance(4);
        splitter_->LockRight = splitter_->LockBottom = chance(2);
    }

    bool ranAway() {
        constexpr int64_t far = 1000000;
        return std::any_of(controls_.begin(), controls_.end(), [&](const RectControl* c) {
            return std::abs(axis().position(*c)) > far || std::abs(axis().extent(*c)) > far;
        });
    }

    RectControl* any() { return controls_[static_cast<size_t>(between(0, 8))]; }

    void step(int kind) {
        switch (kind) {
            case 0:
                splitter_->attach(any());
                break;
            case 1:
                splitter_->unAttach(any(), true);
                break;
            case 2:
                splitter_->setMinLimit(between(0, 250));
                break;
            case 3:
                splitter_->setMaxLimit(between(250, 700));
                break;
            case 4:
                chance(2) ? splitter_->setMinLimitOffset(between(-5, 99))
                          : splitter_->setMaxLimitOffset(between(-5, 99));
                break;
            case 5:
                splitter_->setProportion(between(-2, 12) / 10.0);
                break;
            case 6:
                splitter_->setPosition(between(-50, 800));
                break;
            case 7:
                chance(2) ? splitter_->setMinAttachedControl(any(), chance(2))
                          : splitter_->setMaxAttachedControl(any(), chance(2));
                break;
            case 8:
                changeRole(*any());
                break;
            case 9:
                if (chance(8)) splitter_->unAttachAllControls();
                if (chance(8)) splitter_->attachNearbyControls();
                break;
            case 10:
                splitter_->resetPosition();
                break;
            case 11:
                behaveTwice();
                break;
            case 12:
            case 13:
                stage_.userResized(between(100, 1200), between(100, 1200));
                break;
            default:
                dragOnce();
        }
    }

    void changeRole(RectControl& control) {
        if (splitterHas(control)) {
            splitter_->setAttachedControlShouldMove(&control, chance(2));
            splitter_->setAttachedControlShouldResize(&control, chance(2));
            splitter_->setAttachedControlMinSizeVisible(&control, between(0, 40));
            splitter_->setAttachedControlNormallyVisible(&control, !chance(5));
            if (chance(4)) splitter_->setAttachedControlShouldCenter(&control, chance(2));
        }
    }

    bool splitterHas(const RectControl& control) {
        for (auto& entry : Probe::attached(*splitter_))
            if (entry.control == &control) return true;
        return false;
    }

    void dragOnce() {
        int to = between(-300, 300);
        splitter_->userPressed(5, 5);
        remember();
        splitter_->userDragged(vertical_ ? to : 5, vertical_ ? 5 : to);
        if (!splitter_->DisableLiveDrag) checkGaps();
        checkPlace();
        splitter_->userReleased(5, 5);
    }

    // Where neither of the bounding controls moves its outer edge, the limits are as they were, and
    // behaving again finds everything in place. Zones that overlap may push it to and fro.
    void behaveTwice() {
        splitter_->behave();
        checkPlace();
        if (zonesOverlap() || proportionIsCut() || isAheadOfItsContainer(*controls_.back()) ||
            !keepsItsOuterEdge(Probe::minControl(*splitter_), true) ||
            !keepsItsOuterEdge(Probe::maxControl(*splitter_), false))
            return;
        auto before = places();
        splitter_->behave();
        EXPECT_EQ(places(), before) << "behaving a second time changed something";
    }

    // What is adjusted ahead of its container sees that as it was.
    bool isAheadOfItsContainer(const RectControl& control) {
        for (auto& entry : Probe::attached(*splitter_)) {
            if (entry.control == control.Parent) return false;
            if (entry.control == &control) return true;
        }
        return false;
    }

    bool keepsItsOuterEdge(RectControl* bound, bool isMin) {
        if (bound == nullptr) return true;
        if (bound->Parent != nullptr) return false;
        for (auto& entry : Probe::attached(*splitter_)) {
            if (entry.control != bound) continue;
            if (entry.shouldCenter) return false;
            if (entry.behind == isMin) return entry.shouldMove == (!isMin && entry.shouldResize);
            return !entry.shouldMove && !entry.shouldResize;
        }
        return true;
    }

    using Place = std::array<int, 5>;
    std::vector<Place> places() {
        std::vector<Place> result;
        for (Control* control : stage_.controls()) {
            auto& c = dynamic_cast<RectControl&>(*control);
            result.push_back({c.Left, c.Top, c.Width, c.Height, c.Visible ? 1 : 0});
        }
        return result;
    }

    struct Gap {
        RectControl* control;
        int64_t toSplitter;
        int64_t outerEdge;
    };

    // For the controls that only the splitter moves, what a move must leave as it is.
    void remember() {
        gaps_.clear();
        for (auto& entry : Probe::attached(*splitter_)) {
            RectControl& c = *entry.control;
            bool usual = entry.shouldResize && entry.shouldMove != entry.behind;
            if (!usual || entry.shouldCenter || c.Parent != nullptr) continue;
            int64_t gap = entry.behind ? axis().position(*splitter_) - axis().farEdge(c)
                                       : axis().position(c) - axis().position(*splitter_);
            gaps_.push_back({&c, gap, entry.behind ? axis().position(c) : axis().farEdge(c)});
        }
    }

    // Straight after a move that took the controls along.
    void checkAdjusted() {
        for (auto& entry : Probe::attached(*splitter_)) {
            const RectControl& c = *entry.control;
            if (!c.Visible) continue;
            EXPECT_GE(axis().extent(c), 1) << c.name();
            EXPECT_GE(axis().extent(c), entry.minSizeVisible) << c.name();
        }
        checkPlace();
    }

    void checkGaps() {
        for (const Gap& gap : gaps_) {
            const RectControl& c = *gap.control;
            bool behind = Probe::entry(*splitter_, c).behind;
            int64_t here = axis().position(*splitter_);
            EXPECT_EQ(behind ? here - axis().farEdge(c) : axis().position(c) - here, gap.toSplitter)
                << c.name();
            EXPECT_EQ(behind ? axis().position(c) : axis().farEdge(c), gap.outerEdge) << c.name();
        }
    }

    // Limits that the author gave may hold it outside the range that its proportion is kept in.
    bool proportionIsCut() {
        int64_t here = axis().position(*splitter_);
        return splitter_->StayProportional &&
               (here < Probe::proportionMin(*splitter_) || here > Probe::proportionMax(*splitter_));
    }

    bool zonesOverlap() {
        return splitter_->MinLimit + splitter_->MinLimitOffset >
               splitter_->MaxLimit - splitter_->MaxLimitOffset;
    }

    // Within the limits, and in no zone, unless they cross.
    void checkPlace() {
        int64_t here = axis().position(*splitter_);
        int64_t low = splitter_->MinLimit;
        int64_t high = splitter_->MaxLimit;
        EXPECT_LE(here, high);
        if (low > high) return;
        EXPECT_GE(here, low);
        int64_t innerLow = low + splitter_->MinLimitOffset;
        int64_t innerHigh = high - splitter_->MaxLimitOffset;
        if (innerLow > innerHigh) return;
        bool atEnd = (here == low && !splitter_->StopAtMinOffset) ||
                     (here == high && !splitter_->StopAtMaxOffset);
        EXPECT_TRUE(atEnd || (here >= innerLow && here <= innerHigh))
            << here << " in " << low << " to " << high;
    }

    void checkAlways() {
        std::vector<const RectControl*> seen;
        for (auto& entry : Probe::attached(*splitter_)) {
            ASSERT_NE(entry.control, nullptr);
            EXPECT_EQ(std::count(seen.begin(), seen.end(), entry.control), 0);
            seen.push_back(entry.control);
        }
    }

    FakePlatform platform_;
    Stage& stage_ = Stage::make();
    std::mt19937_64 random_;
    bool vertical_;
    SmartSplitter* splitter_ = nullptr;
    std::vector<RectControl*> controls_;
    std::vector<Gap> gaps_;
};

TEST(RandomWalk, LeavesASplitterThatHoldsTogether) {
    constexpr int steps = 1000000;
    constexpr int stepsOfAWalk = 200;
    auto seed = static_cast<uint64_t>(testing::UnitTest::GetInstance()->random_seed()) * 1000000;
    for (int taken = 0; taken < steps; ++seed) {
        taken += Walk(seed).run(stepsOfAWalk);
        ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed;
    }
}

}  // namespace
}  // namespace bracken::test
