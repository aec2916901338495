#pragma once

#include <string>

#include "framework/files/folder_item.h"
#include "framework/platform/platform.h"
#include "framework/ref.h"

namespace bracken {

// What the program asks of the user and of the desktop. Holding the baton; dialogs block the caller
// until the user has answered, while other threads go on.

// Shows a message; `code` and the result are of BoxCode. In a question No is the default. Any
// thread.
int MsgBox(const std::string& text, int code = BoxCode::ok, const std::string& title = "");

// The system's alert sound. Any thread.
void Beep();

// A folder chosen by the user; nil if the choice is cancelled. Main thread.
Ref<FolderItem> SelectFolder();

// Opens an HTML file in the user's default web browser, else in what the desktop opens it with, and
// does not wait for that. With no such program nothing happens. Main thread.
void Launch(const Ref<FolderItem>& file);

// Asks the user for a file to write. Main thread.
class SaveAsDialog {
  public:
    // The folder it starts in; nil leaves that to the desktop.
    Ref<FolderItem> InitialDirectory;
    std::string PromptText;
    std::string SuggestedFileName;
    std::string Title;
    // Extension of the files it lists; empty for all. The name that the user gives needs none, and
    // gets none.
    std::string Filter;

    // Blocks until the user has answered; nil if the choice is cancelled. For a file that exists
    // the user has agreed to its being replaced.
    Ref<FolderItem> ShowModal() const;
};

// The system clipboard. Main thread.
class Clipboard {
  public:
    // Opens the clipboard and reads its text.
    Clipboard();

    std::string Text;

    // Puts Text on the clipboard.
    void Close() const;
};

}  // namespace bracken
