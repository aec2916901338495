#include "program/actions/win_view_data.h"
#include "program/results/win_results.h"

namespace bracken {

void winResults::butViewData_Action() {
    ProgressWheel1.Visible = true;
    class winViewData& window = winViewData();
    window.init(lstResults.Text());
}

}  // namespace bracken
