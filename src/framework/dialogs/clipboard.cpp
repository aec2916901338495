#include "framework/dialogs/clipboard.h"

#include "framework/platform/platform.h"

namespace bracken {

Clipboard::Clipboard() : Text(Platform::current().clipboardText()) {}

void Clipboard::Close() const {
    Platform::current().setClipboardText(Text);
}

}  // namespace bracken
