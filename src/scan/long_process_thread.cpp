#include "scan/long_process_thread.h"

#include "framework/text/text.h"
#include "scan/extension_filter.h"
#include "scan/found_in.h"

namespace bracken {

LongProcessThread::LongProcessThread(std::unique_ptr<RunContext> context)
    : context_(std::move(context)) {}

void LongProcessThread::Event_Run() {
    filesProcessed = 0;
    totalFiles = 0;
    context_->lblProgress().Caption = "Gathering Files...";
    GetFileCount(context_->folder());
    context_->ProgressBar1().Maximum = totalFiles;
    context_->pwInitializing().Visible = false;
    context_->ProgressBar1().Visible = true;
    ProcessFolder(context_->folder());
    if (Finished) Finished();
}

void LongProcessThread::GetFileCount(const Ref<FolderItem>& folder) {
    context_->ProgressBar1().Value = -1;
    for (int i = 1; i <= folder->Count(); i++) {
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
    for (int i = 1; i <= folder->Count(); i++) {
        Ref<FolderItem> item = folder->Item(i);
        if (item->Directory()) {
            ProcessFolder(item);
        } else {
            filesProcessed++;
            context_->ProgressBar1().Value = filesProcessed;
            if (passesExtensions(item->Name(), extensions)) searchFile(*folder, i);
        }
        Yield();
    }
}

std::string LongProcessThread::readFile(const FolderItem& file) {
    Ref<BinaryStream> stream = file.OpenAsBinaryFile(false);
    // The count is the low 32 bits of the length as a signed number, so files of 2 to 4 GiB read as
    // empty.
    std::string text = stream->Read(static_cast<int32_t>(file.Length()), nullptr);
    stream->Close();
    return text;
}

void LongProcessThread::searchFile(FolderItem& folder, int i) {
    Ref<FolderItem> file = folder.Item(i);
    std::string text = readFile(*file);
    for (int row = 0; row <= context_->lstResults().ListCount() - 1; row++) {
        Listbox& list = context_->lstResults();
        if (InStr(0, text, list.cellText(row, 0)) > 0)
            enterFile(list, row, file->Name(), file->AbsolutePath());
        Yield();
    }
    context_->lblProgress().Refresh(true);
}

}  // namespace bracken
