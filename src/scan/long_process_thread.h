#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "framework/files/folder_item.h"
#include "framework/ref.h"
#include "framework/threads/thread.h"
#include "scan/run_context.h"

namespace bracken {

// The scan: counts the files under the folder, then walks it again, searches each file that passes
// the extension list for every table name in column 0 of the list, and enters the file into the
// rows hit. Stopping points lie at the end of each file and of each row, and around reading.
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
    void searchFile(FolderItem& folder, int i);
    std::string readFile(const FolderItem& file);

    std::unique_ptr<RunContext> context_;
};

}  // namespace bracken
