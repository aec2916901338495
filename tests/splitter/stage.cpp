#include "tests/splitter/stage.h"

namespace bracken::test {

Stage& Stage::make() {
    return Windows::get().instance<Stage>();
}

void Stage::Layout() {
    Width = 800;
    Height = 600;
}

void Stage::Event_Resized() {
    for (Control* control : controls())
        if (auto* splitter = dynamic_cast<SmartSplitter*>(control)) splitter->behave();
}

std::string orientationName(const testing::TestParamInfo<bool>& info) {
    return info.param ? "Upright" : "Lying";
}

}  // namespace bracken::test
