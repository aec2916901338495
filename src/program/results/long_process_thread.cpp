#include "program/results/long_process_thread.h"

#include <ctime>

#include "framework/text/text.h"
#include "program/results/result_recorder.h"
#include "scan/file_search.h"

namespace bracken {

namespace {

// The folder without the entries known so far: one that has gone before a walk is no part of it.
Ref<FolderItem> freshCopy(const Ref<FolderItem>& folder) {
    return folder == nullptr ? folder : folder->copy();
}

// The end of a loop over a folder's entries, asked for again at each entry. The folder itself is
// asked at the last known entry, so that no entry which has appeared by then is missed, and before
// that once in a tick of the system's clock: to ask at each entry would cost as much as half the
// reading.
class FolderCount {
  public:
    FolderCount(ResultRecorder& recorder, FolderItem& folder)
        : recorder_(recorder), folder_(folder) {}

    // The number of entries, or a lower one that is at least `next`.
    int count(int next) {
        struct timespec now;
        clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
        bool sameTick = now.tv_sec == asked_.tv_sec && now.tv_nsec == asked_.tv_nsec;
        if (next <= known_ && sameTick) return known_;
        asked_ = now;
        known_ = recorder_.count(folder_);
        return known_;
    }

  private:
    ResultRecorder& recorder_;
    FolderItem& folder_;
    struct timespec asked_ = {};
    int known_ = 0;
};

}  // namespace

LongProcessThread::LongProcessThread(std::unique_ptr<RunContext> context)
    : context_(std::move(context)) {}

void LongProcessThread::Event_Run() {
    filesProcessed = 0;
    totalFiles = 0;
    countAndSearch();
    // A window that opens during the call sets its handler; this copy stays.
    auto handler = Finished;
    if (handler) handler();
}

void LongProcessThread::countAndSearch() {
    ResultRecorder recorder(*context_);
    recorder_ = &recorder;
    context_->lblProgress().Caption = "Gathering Files...";
    Ref<FolderItem> folder = freshCopy(context_->folder());
    if (folder != nullptr) recorder.enterFolder(folder, context_->peekExtensions());
    GetFileCount(folder);
    context_->ProgressBar1().Maximum = totalFiles;
    context_->pwInitializing().Visible = false;
    context_->ProgressBar1().Visible = true;
    ProcessFolder(freshCopy(context_->folder()));
}

void LongProcessThread::GetFileCount(const Ref<FolderItem>& folder) {
    context_->ProgressBar1().Value = -1;
    FolderCount entries(*recorder_, *folder);
    for (int i = 1; i <= entries.count(i); i++) {
        Ref<FolderItem> item = folder->Item(i);
        if (item->Directory()) {
            GetFileCount(item);
        } else {
            totalFiles++;
            context_->lblProgress().Caption = "Gathering File #" + Str(totalFiles);
        }
        Yield();
    }
}

void LongProcessThread::ProcessFolder(const Ref<FolderItem>& folder) {
    context_->lblProgress().Caption = "Processing files in " + folder->AbsolutePath();
    std::string extensions = context_->extensions();
    recorder_->enterFolder(folder, extensions);
    FolderCount entries(*recorder_, *folder);
    for (int i = 1; i <= entries.count(i); i++) {
        Ref<FolderItem> item = folder->Item(i);
        if (item->Directory()) {
            ProcessFolder(item);
        } else {
            filesProcessed++;
            context_->ProgressBar1().Value = filesProcessed;
            if (passesExtensions(item->Name(), extensions)) recorder_->record(*item);
        }
        Yield();
    }
    recorder_->leaveFolder(*folder);
}

}  // namespace bracken
