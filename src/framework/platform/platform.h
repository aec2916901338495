#pragma once

#include <atomic>
#include <string>

namespace bracken {

class Window;

// The codes that MsgBox takes and returns.
struct BoxCode {
    // Buttons: OK alone; Yes and No, with a question icon.
    static constexpr int ok = 0;
    // As ok, with the icon of an error.
    static constexpr int error = 16;
    static constexpr int yesNoQuestion = 36;

    // The button that was pressed.
    static constexpr int okPressed = 1;
    static constexpr int yesPressed = 6;
    static constexpr int noPressed = 7;
};

// A rectangle in pixels of the screen.
struct ScreenRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

// What a save dialog shows at first.
struct SaveQuestion {
    // Path of the folder it starts in, "" for any.
    std::string folder;
    std::string title;
    std::string prompt;
    // Of the file.
    std::string name;
    // Extension of the files it lists, "" for all.
    std::string filter;
};

// What the program needs of the desktop: the one interface between the framework and a toolkit.
class Platform {
  public:
    virtual ~Platform() = default;

    static Platform& current();
    // The platform must outlive the program's windows.
    static void install(Platform* platform);

    // Modal dialogs. Main thread, without the baton; they return when the user has answered.

    // `code` as for MsgBox. Escape and the close box mean No where there is a No.
    virtual int messageBox(const std::string& text, int code, const std::string& title) = 0;
    // An existing folder's path, "" if the user cancels.
    virtual std::string selectFolder() = 0;
    // The path of a file to write, just as the user entered it; "" if the user cancels. For one
    // that exists the user has agreed to its being replaced.
    virtual std::string saveFile(const SaveQuestion& question) = 0;
    // Lets the user work with this window alone, and returns once it has closed.
    virtual void runModal(const Window& window) = 0;

    // Main thread, with the baton.

    // Closes the message box on the screen as if it had been answered.
    virtual void closeMessageBox() = 0;
    virtual void beep() = 0;
    // Opens an HTML file as Launch does. Returns at once; a failure is silent.
    virtual void launch(const std::string& path) = 0;
    // Whether the control that has the focus offers the Edit menu's item of that name now.
    virtual bool offersEdit(const std::string& menuItemName) = 0;
    // Carries that item out.
    virtual void performEdit(const std::string& menuItemName) = 0;
    // The system clipboard's text; empty on a desktop without one.
    virtual std::string clipboardText() { return ""; }
    virtual void setClipboardText(const std::string& /*text*/) {}
    // Ends the event loop, and with it the process.
    virtual void exitLoop(int status) = 0;

    // Any thread, with the baton.

    // Brings the window in front as soon as its view is there.
    virtual void bringToFront(Window& window) = 0;
    // Something in the model differs from what the screen shows: a frame is due. Called once for
    // each frame.
    virtual void modelChanged() = 0;
    // The main screen, and the part of it that windows may use.
    virtual ScreenRect screen() = 0;
    virtual ScreenRect workArea() = 0;
    // Ends the process at once with this status, saving nothing.
    virtual void abort(int status) = 0;

    // Makes the main thread look at MainThreadCalls and at pumpUntil's flag. Any thread, baton or
    // not.
    virtual void wake() = 0;

    // Main thread, without the baton.

    virtual bool hasEventLoop() = 0;
    // Handles events other than input until `done`; false if the user chose Quit meanwhile.
    virtual bool pumpUntil(const std::atomic<bool>& done) = 0;
};

}  // namespace bracken
