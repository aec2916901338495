#pragma once

namespace bracken {

// Stands in MinLimit until the limit has been found; taken for 0 from then on.
constexpr int limitNotDerived = 9999;

}  // namespace bracken
