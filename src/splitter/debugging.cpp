#include "framework/controls/window_content.h"
#include "framework/dialogs/dialogs.h"
#include "framework/exception.h"
#include "splitter/canvas_smart_splitter_debugger.h"
#include "splitter/smart_splitter.h"

namespace bracken {

void SmartSplitter::setDebug(bool value) {
    initializeSmartSplitter();
    Debug = value;
    if (!value) {
        if (debugCanvas != nullptr) {
            debugCanvas->debug = false;
            refreshDebugCanvas(true);
        }
        debugCanvas = nullptr;
    } else if (CanvasSmartSplitterDebugger* found = findDebugCanvas()) {
        debugCanvas = found;
        debugCanvas->debug = true;
    } else if (debugCanvas == nullptr) {
        MsgBox("SmartSplitter '" + name() +
               "' needs a CanvasSmartSplitterDebugger to be present in the window for debug mode "
               "to work.");
        Debug = false;
    }
    refreshDebugCanvas(true);
}

CanvasSmartSplitterDebugger* SmartSplitter::findDebugCanvas() const {
    for (Control* control : window().controls())
        if (auto* found = dynamic_cast<CanvasSmartSplitterDebugger*>(control)) return found;
    return nullptr;
}

void SmartSplitter::refreshDebugCanvas(bool clearFirst) {
    if (debugCanvas == nullptr) return;
    if (clearFirst) debugCanvas->clearP();
    markOnDebugCanvas();
    // The overlay repaints.
    debugCanvas->Visible = false;
    debugCanvas->Visible = true;
}

void SmartSplitter::markOnDebugCanvas() {
    if (debugCanvas != nullptr) debugCanvas->markSplitter(*this, MinLimit, MaxLimit, isVertical);
}

void SmartSplitter::clearDebugCanvas() {
    if (debugCanvas == nullptr) throw NilObjectException("no overlay to debug on");
    debugCanvas->clearP();
}

}  // namespace bracken
