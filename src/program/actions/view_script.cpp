#include "program/actions/win_view_script.h"
#include "program/results/win_results.h"

namespace bracken {

void winResults::butViewScript_Action() {
    winViewScript().init(lstResults.ListIndex);
}

}  // namespace bracken
