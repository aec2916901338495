#include <algorithm>
#include <array>
#include <random>

#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/controls/plain_controls.h"
#include "tests/splitter/stage.h"

namespace bracken::test {
namespace {

using Probe = SmartSplitterProbe;

// A splitter that reports each move, before and after.
struct Observed : SmartSplitter {
    using SmartSplitter::SmartSplitter;
    void moveDistance(int distance, bool behaving) override {
        if (before) before();
        SmartSplitter::moveDistance(distance, behaving);
        if (after) after();
    }
    std::function<void()> before;
    std::function<void()> after;
};

// A stage with a splitter, a dozen controls around it and a parallel splitter, on which random
// steps are taken. After each step all invariants are checked.
class Walk {
  public:
    explicit Walk(uint64_t seed) : random_(seed), vertical_(chance(2)) {
        addControls();
        splitter_ = &stage_.add<Observed>("splitter", vertical_, {between(150, 450), 10});
        presetDesign();
        splitter_->Moved = [this](int /*distance*/) { checkAdjusted(); };
        splitter_->Event_Open();
        splitter_->before = [this] { remember(); };
        splitter_->after = [this] { checkMove(); };
        if (chance(2)) addParallel();
    }

    // Returns the number of steps taken: fewer if the layout diverges, as some do whose limits
    // depend on the controls that they push.
    int run(int steps) {
        int taken = 0;
        for (; taken < steps && !testing::Test::HasFailure() && !diverged(); ++taken) step();
        return taken;
    }

  private:
    // Left, top, width, height, visible.
    using Place = std::array<int, 5>;
    using Role = Probe::Entry;

    const Axis& axis() const { return vertical_ ? Axis::x() : Axis::y(); }
    int64_t currentPosition() const { return axis().position(*splitter_); }
    int between(int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random_);
    }
    bool chance(int oneIn) { return between(1, oneIn) == 1; }
    RectControl* any() { return controls_[static_cast<size_t>(between(0, 8))]; }

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

    bool diverged() const {
        constexpr int64_t maxCoordinate = 1000000;
        return std::any_of(controls_.begin(), controls_.end(), [&](const RectControl* c) {
            return std::abs(axis().position(*c)) > maxCoordinate ||
                   std::abs(axis().extent(*c)) > maxCoordinate;
        });
    }

    void step() {
        Observed& s = *splitter_;
        const std::function<void()> steps[] = {
            [&] { s.attach(any()); },
            [&] { s.unAttach(any(), true); },
            [&] { s.setMinLimit(between(0, 250)); },
            [&] { s.setMaxLimit(between(250, 700)); },
            [&] { s.setMinLimitOffset(between(-5, 99)); },
            [&] { s.setMaxLimitOffset(between(-5, 99)); },
            [&] { s.setProportion(between(-2, 12) / 10.0); },
            [&] { s.setPosition(between(-50, 800)); },
            [&] { s.setMinAttachedControl(any(), chance(2)); },
            [&] { s.setMaxAttachedControl(any(), chance(2)); },
            [&] { changeRole(*any()); },
            [&] {
                if (chance(8)) s.unAttachAllControls();
                if (chance(8)) s.attachNearbyControls();
            },
            [&] { s.resetPosition(); },
            [&] { behaveAgain(); },
            [&] { stage_.userResized(between(100, 1200), between(100, 1200)); },
        };
        constexpr int kinds = std::size(steps);
        int kind = between(0, kinds + 5);
        kind < kinds ? steps[kind]() : dragOnce();
        checkEntries();
    }

    void changeRole(RectControl& control) {
        if (entryOf(control) == nullptr) return;
        splitter_->setAttachedControlShouldMove(&control, chance(2));
        splitter_->setAttachedControlShouldResize(&control, chance(2));
        splitter_->setAttachedControlMinSizeVisible(&control, between(0, 40));
        splitter_->setAttachedControlNormallyVisible(&control, !chance(5));
        if (chance(4)) splitter_->setAttachedControlShouldCenter(&control, chance(2));
    }

    void dragOnce() {
        int to = between(-300, 300);
        splitter_->userPressed(5, 5);
        splitter_->userDragged(vertical_ ? to : 5, vertical_ ? 5 : to);
        splitter_->userReleased(5, 5);
    }

    // If neither bounding control moves its outer edge, the limits stay, and behaving again changes
    // nothing. That takes a second call if one zone may have pushed the splitter into the other, or
    // the limits have pushed it out of the range.
    void behaveAgain() {
        splitter_->behave();
        if (zonesOverlap() || proportionIsClamped()) splitter_->behave();
        if (isAdjustedBeforeItsContainer(*controls_.back()) ||
            !keepsItsOuterEdge(Probe::minControl(*splitter_), true) ||
            !keepsItsOuterEdge(Probe::maxControl(*splitter_), false))
            return;
        auto before = places();
        splitter_->behave();
        EXPECT_EQ(places(), before) << "behaving again changed something";
    }

    Role* entryOf(const RectControl& control) {
        auto& all = Probe::attached(*splitter_);
        auto at = std::find_if(all.begin(), all.end(),
                               [&](const Role& role) { return role.control == &control; });
        return at == all.end() ? nullptr : &*at;
    }

    // It sees the container as it was.
    bool isAdjustedBeforeItsContainer(const RectControl& control) {
        Role* inner = entryOf(control);
        Role* outer = entryOf(*control.Parent);
        return inner != nullptr && (outer == nullptr || inner < outer);
    }

    bool keepsItsOuterEdge(RectControl* bound, bool isMin) {
        if (bound == nullptr) return true;
        if (bound->Parent != nullptr) return false;
        Role* role = entryOf(*bound);
        if (role == nullptr) return true;
        if (role->shouldCenter) return false;
        if (role->behind == isMin) return role->shouldMove == (!isMin && role->shouldResize);
        return !role->shouldMove && !role->shouldResize;
    }

    std::vector<Place> places() const {
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

    Gap gapOf(const Role& role) const {
        RectControl& c = *role.control;
        if (role.behind) return {&c, currentPosition() - axis().farEdge(c), axis().position(c)};
        return {&c, axis().position(c) - currentPosition(), axis().farEdge(c)};
    }

    // Before a move: what must stay.
    void remember() {
        before_ = places();
        for (RectControl* control : controls_) control->takeDirty();
        gaps_.clear();
        for (auto& role : Probe::attached(*splitter_)) {
            bool usual = role.shouldResize && role.shouldMove != role.behind && !role.shouldCenter;
            if (usual && role.control->Parent == nullptr) gaps_.push_back(gapOf(role));
        }
    }

    void checkMove() {
        checkPlace();
        auto after = places();
        for (size_t i = 0; i < controls_.size(); ++i) {
            // A control in a container becomes dirty with it.
            if (after[i] != before_[i] || controls_[i]->Parent != nullptr) continue;
            EXPECT_FALSE(controls_[i]->takeDirty()) << controls_[i]->name() << " set without need";
        }
        if (splitter_->DisableLiveDrag) return;
        for (const Gap& gap : gaps_) {
            Gap now = gapOf(*entryOf(*gap.control));
            EXPECT_EQ(now.toSplitter, gap.toSplitter) << gap.control->name();
            EXPECT_EQ(now.outerEdge, gap.outerEdge) << gap.control->name();
        }
    }

    // Right after the controls have been adjusted.
    void checkAdjusted() {
        for (auto& role : Probe::attached(*splitter_)) {
            const RectControl& c = *role.control;
            if (!c.Visible) continue;
            EXPECT_GE(axis().extent(c), std::max(1, role.minSizeVisible)) << c.name();
        }
    }

    // Outside the range of the proportion, which is one of its ends then.
    bool proportionIsClamped() const {
        return splitter_->StayProportional &&
               (currentPosition() < Probe::proportionMin(*splitter_) ||
                currentPosition() > Probe::proportionMax(*splitter_));
    }

    bool zonesOverlap() const {
        return splitter_->MinLimit + splitter_->MinLimitOffset >
               splitter_->MaxLimit - splitter_->MaxLimitOffset;
    }

    // Within the limits unless they cross, and in no zone unless they overlap.
    void checkPlace() const {
        int64_t low = splitter_->MinLimit;
        int64_t high = splitter_->MaxLimit;
        EXPECT_LE(currentPosition(), high);
        if (low > high) return;
        EXPECT_GE(currentPosition(), low);
        bool atEnd = (currentPosition() == low && !splitter_->StopAtMinOffset) ||
                     (currentPosition() == high && !splitter_->StopAtMaxOffset);
        if (atEnd || zonesOverlap()) return;
        EXPECT_GE(currentPosition(), low + splitter_->MinLimitOffset);
        EXPECT_LE(currentPosition(), high - splitter_->MaxLimitOffset);
    }

    void checkEntries() const {
        std::vector<const RectControl*> seen;
        for (auto& role : Probe::attached(*splitter_)) {
            ASSERT_NE(role.control, nullptr);
            EXPECT_EQ(std::count(seen.begin(), seen.end(), role.control), 0);
            seen.push_back(role.control);
        }
    }

    FakePlatform platform_;
    Stage& stage_ = Stage::make();
    std::mt19937_64 random_;
    bool vertical_;
    Observed* splitter_ = nullptr;
    std::vector<RectControl*> controls_;
    std::vector<Place> before_;
    std::vector<Gap> gaps_;
};

TEST(RandomWalk, KeepsTheInvariants) {
    constexpr int steps = 1000000;
    constexpr int stepsOfAWalk = 200;
    auto seed = static_cast<uint64_t>(testing::UnitTest::GetInstance()->random_seed()) * 1000000;
    for (int taken = 0; taken < steps; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        taken += Walk(seed).run(stepsOfAWalk);
        ASSERT_FALSE(testing::Test::HasFailure());
    }
}

}  // namespace
}  // namespace bracken::test
