#include <algorithm>

#include "framework/ref.h"
#include "splitter/smart_splitter.h"

namespace bracken {

// The min limit ignores the bounding control's extent, the max limit the splitter's: a splitter at
// either limit lies just outside the control.
void SmartSplitter::assignLimits() {
    if (MinLimit == limitNotDerived) MinLimit = 0;
    if (minAttachedControl != nullptr) {
        proportionMin =
            static_cast<int>(axis().position(*minAttachedControl) - axis().extent(*this));
        if (!minLimitPropSet) MinLimit = proportionMin;
    }
    int64_t windowSize = axis().size(window());
    // Without a control at the max end the limit follows the window's change since the last call.
    proportionMax =
        static_cast<int>(maxAttachedControl != nullptr ? axis().farEdge(*maxAttachedControl)
                                                       : MaxLimit + windowSize - windowSizeLast);
    if (!maxLimitPropSet) MaxLimit = proportionMax;
    windowSizeLast = static_cast<int>(windowSize);
}

void SmartSplitter::setMaxLimit(int value) {
    initializeSmartSplitter();
    MaxLimit = value;
    maxAttachedControl = nullptr;
    refreshDebugCanvas(true);
}

void SmartSplitter::setMinLimit(int value) {
    initializeSmartSplitter();
    MinLimit = value;
    minAttachedControl = nullptr;
    refreshDebugCanvas(true);
}

void SmartSplitter::setMaxLimitOffset(int value) {
    initializeSmartSplitter();
    MaxLimitOffset = std::max(value, 0);
    refreshDebugCanvas(true);
}

void SmartSplitter::setMinLimitOffset(int value) {
    initializeSmartSplitter();
    MinLimitOffset = std::max(value, 0);
    refreshDebugCanvas(true);
}

void SmartSplitter::setMaxLimitOffset(RectControl* control) {
    initializeSmartSplitter();
    assignLimits();
    MaxLimitOffset =
        static_cast<int>(MaxLimit - axis().position(checked(control)) + axis().extent(*this));
    refreshDebugCanvas(true);
}

void SmartSplitter::setMinLimitOffset(RectControl* control) {
    initializeSmartSplitter();
    assignLimits();
    MinLimitOffset = static_cast<int>(axis().farEdge(checked(control)) - MinLimit);
    refreshDebugCanvas(true);
}

}  // namespace bracken
