#pragma once

#include "framework/controls/plain_controls.h"
#include "framework/files/folder_item.h"
#include "framework/ref.h"
#include "program/results/results_list.h"

namespace bracken {

// What a run works on. The scan asks anew at each access and keeps nothing of it, since the window
// behind it may close, and another come up, between any two.
class RunContext {
  public:
    virtual ~RunContext() = default;

    // The folder to search; may be nil.
    virtual Ref<FolderItem> folder() = 0;
    virtual ResultsList& lstResults() = 0;
    virtual StaticText& lblProgress() = 0;
    virtual ProgressBar& ProgressBar1() = 0;
    virtual ProgressWheel& pwInitializing() = 0;
    // The extension list, "" for all files. Asking enters it into the settings if it is not there.
    virtual std::string extensions() = 0;
    // The same, but changes nothing.
    virtual std::string peekExtensions() = 0;
};

}  // namespace bracken
