#include "platform/qt/edit_commands.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>

#include "platform/qt/listbox_view.h"
#include "platform/qt/qt_text.h"

namespace bracken {

namespace {

// One item on one kind of widget.
template <class Widget>
struct Command {
    const char* name;
    bool (*offered)(const Widget& widget);
    void (*perform)(Widget& widget);
};

bool selected(const QLineEdit& field) {
    return field.hasSelectedText();
}

bool readable(const QLineEdit& field) {
    return selected(field) && field.echoMode() == QLineEdit::Normal;
}

constexpr Command<QLineEdit> fieldCommands[] = {
    {"EditUndo", [](auto& field) { return field.isUndoAvailable(); },
     [](auto& field) { field.undo(); }},
    {"EditCut", [](auto& field) { return readable(field) && !field.isReadOnly(); },
     [](auto& field) { field.cut(); }},
    {"EditCopy", readable, [](auto& field) { field.copy(); }},
    {"EditPaste", [](auto& field) { return !field.isReadOnly(); },
     [](auto& field) { field.paste(); }},
    {"EditClear", [](auto& field) { return selected(field) && !field.isReadOnly(); },
     [](auto& field) { field.del(); }},
    {"EditSelectAll", [](auto& field) { return !field.text().isEmpty(); },
     [](auto& field) { field.selectAll(); }},
};

bool hasSelection(const QPlainTextEdit& edit) {
    return edit.textCursor().hasSelection();
}

constexpr Command<QPlainTextEdit> textCommands[] = {
    {"EditUndo", [](auto& edit) { return edit.document()->isUndoAvailable(); },
     [](auto& edit) { edit.undo(); }},
    {"EditCut", [](auto& edit) { return hasSelection(edit) && !edit.isReadOnly(); },
     [](auto& edit) { edit.cut(); }},
    {"EditCopy", hasSelection, [](auto& edit) { edit.copy(); }},
    {"EditPaste", [](auto& edit) { return !edit.isReadOnly(); }, [](auto& edit) { edit.paste(); }},
    {"EditClear", [](auto& edit) { return hasSelection(edit) && !edit.isReadOnly(); },
     [](auto& edit) { edit.textCursor().removeSelectedText(); }},
    {"EditSelectAll", [](auto& edit) { return !edit.document()->isEmpty(); },
     [](auto& edit) { edit.selectAll(); }},
};

constexpr Command<ListboxView> listCommands[] = {
    {"EditCopy", [](auto& view) { return view.list().ListIndex >= 0; },
     [](auto& view) {
         QApplication::clipboard()->setText(toQString(view.list().selectedRowText()));
     }},
};

template <class Widget, size_t count>
bool carryOut(const Command<Widget> (&commands)[count], QWidget* focus, const std::string& name,
              bool perform) {
    auto* widget = dynamic_cast<Widget*>(focus);
    if (widget == nullptr) return false;
    for (auto& command : commands) {
        if (command.name != name || !command.offered(*widget)) continue;
        if (perform) command.perform(*widget);
        return true;
    }
    return false;
}

bool carryOut(QWidget* focus, const std::string& name, bool perform) {
    return carryOut(fieldCommands, focus, name, perform) ||
           carryOut(textCommands, focus, name, perform) ||
           carryOut(listCommands, focus, name, perform);
}

}  // namespace

bool offersEdit(QWidget* focus, const std::string& menuItemName) {
    return carryOut(focus, menuItemName, false);
}

void performEdit(QWidget* focus, const std::string& menuItemName) {
    carryOut(focus, menuItemName, true);
}

}  // namespace bracken
