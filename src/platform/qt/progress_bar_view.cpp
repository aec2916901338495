#include "platform/qt/progress_bar_view.h"

#include <algorithm>

namespace bracken {

ProgressBarView::ProgressBarView(ProgressBar& model, QWidget* parent)
    : QProgressBar(parent), ControlView(model, *this), model_(model) {
    setTextVisible(false);
    setAccessibleName(QStringLiteral("Progress"));
}

void ProgressBarView::sync() {
    if (model_.Value == -1) {
        setRange(0, 0);
        return;
    }
    setRange(0, std::max<int>(model_.Maximum, 1));
    int present = std::clamp<int>(model_.Value, 0, std::max<int>(model_.Maximum, 0));
    if (present == value()) return;
    // Else the bar would paint itself at once, ahead of the frame's other changes.
    setUpdatesEnabled(false);
    setValue(present);
    setUpdatesEnabled(true);
}

}  // namespace bracken
