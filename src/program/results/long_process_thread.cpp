#include "program/results/long_process_thread.h"

#include "framework/text/text.h"
#include "program/results/folder_count.h"
#include "program/results/result_recorder.h"
#include "scan/file_search.h"

namespace bracken {

namespace {

// The folder as a walk finds it: an entry that went before the walk is none of it.
Ref<FolderItem> foundAnew(const Ref<FolderItem>& folder) {
    return folder == nullptr ? folder : folder->copy();
}

}  // namespace

LongProcessThread::LongProcessThread(std::unique_ptr<RunContext> context)
    : context_(std::move(context)) {}

void LongProcessThread::Event_Run() {
    filesProcessed = 0;
    totalFiles = 0;
    countAndSearch();
    // The window may be made anew in the course of the call, and sets its handler then.
    auto handler = Finished;
    if (handler) handler();
}

void LongProcessThread::countAndSearch() {
    ResultRecorder entry(*context_);
    entry_ = &entry;
    context_->lblProgress().Caption = "Gathering Files...";
    Ref<FolderItem> folder = foundAnew(context_->folder());
    if (folder != nullptr) entry.enterFolder(folder, context_->peekExtensions());
    GetFileCount(folder);
    context_->ProgressBar1().Maximum = totalFiles;
    context_->pwInitializing().Visible = false;
    context_->ProgressBar1().Visible = true;
    ProcessFolder(foundAnew(context_->folder()));
}

void LongProcessThread::GetFileCount(const Ref<FolderItem>& folder) {
    context_->ProgressBar1().Value = -1;
    FolderCount entries(*entry_, *folder);
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
    entry_->enterFolder(folder, extensions);
    FolderCount entries(*entry_, *folder);
    for (int i = 1; i <= entries.count(i); i++) {
        Ref<FolderItem> item = folder->Item(i);
        if (item->Directory()) {
            ProcessFolder(item);
        } else {
            filesProcessed++;
            context_->ProgressBar1().Value = filesProcessed;
            if (passesExtensions(item->Name(), extensions)) entry_->enter(*item);
        }
        Yield();
    }
    entry_->leaveFolder(*folder);
}

}  // namespace bracken
