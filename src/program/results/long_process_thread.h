#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "framework/files/folder_item.h"
#include "framework/ref.h"
#include "framework/threads/thread.h"
#include "program/results/run_context.h"

namespace bracken {

class ResultRecorder;

// The scan: counts the files under the folder, then walks it again, searches each file that passes
// the extension list for every table name in column 0 of the list, and records the file in the
// rows hit. Stopping points lie at the end of each file and of each row hit, and around reading.
//
// What it does is defined by a plain loop over files and rows with InStr; reading and matching are
// done ahead of it by ReadAhead, and what was found is recorded here, file by file in order.
class LongProcessThread : public Thread {
  public:
    explicit LongProcessThread(std::unique_ptr<RunContext> context);

    int32_t totalFiles = 0;
    int32_t filesProcessed = 0;

    // Raised on the run's own thread as its last act; not after Kill or an exception.
    std::function<void()> Finished;

  protected:
    void Event_Run() override;
    virtual void ProcessFolder(const Ref<FolderItem>& folder);
    virtual void GetFileCount(const Ref<FolderItem>& folder);

  private:
    void countAndSearch();

    const std::unique_ptr<RunContext> context_;
    // That of the latest run; a killed run unwinds without using it.
    ResultRecorder* recorder_ = nullptr;
};

}  // namespace bracken
