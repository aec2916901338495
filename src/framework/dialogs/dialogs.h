#pragma once

#include <string>

#include "framework/files/folder_item.h"
#include "framework/ref.h"

namespace bracken {

// Dialogs, callable from the main thread and from a run, holding the baton; they block the caller
// until the user has answered, while other threads go on.

// Shows a message. Code 0: one button, OK, result 1; code 16: the same with the icon of an error.
// Code 36: Yes and No with a question icon, No being the default; result 6 for Yes, 7 for No.
int MsgBox(const std::string& text, int code = 0, const std::string& title = "");

// The system's alert sound.
void Beep();

// A folder chosen by the user; nil if the choice is cancelled. Main thread.
Ref<FolderItem> SelectFolder();

// Opens an HTML file in the user's default web browser, else in what the desktop opens it with, and
// does not wait for that. With no such program nothing happens. Main thread.
void Launch(const Ref<FolderItem>& file);

}  // namespace bracken
