#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "framework/containers/dictionary.h"
#include "framework/files/streams.h"
#include "framework/graphics/color.h"
#include "framework/ref.h"
#include "framework/values/date.h"
#include "framework/values/variant.h"
#include "plist/child_list.h"

namespace bracken {

class CheckBox;
class EditField;
class Listbox;
class plist;
class PopupMenu;
class RadioButton;
class StaticText;
class Window;

// One node of a property list: a dictionary, or an array, which is a dictionary with the keys "0",
// "1", "2".
// - Every value is text with a type tag ("string", "integer", "boolean", "dict", ...).
// - Keys and tags are compared without regard to letter case.
// - A getter with a default stores that default when the key is missing, so reading a setting
//   creates it.
// - Most failures are not raised: they go to the document's `error` and `errorMessage`, and the
//   call returns a neutral value. Almost every operation clears the previous error first.
// - A node owns its children. It is always held by a shared pointer and is used only while its
//   document lives.
// - Callers hold the baton; no operation releases it.
//
// Where the operations are defined:
//   plist_dict.cpp           keys, children, cursor, errors, AbsolutePath
//   plist_dict_values.cpp    texts, whole numbers, booleans; what all setters share
//   plist_dict_typed.cpp     dates, data, reals, colours
//   plist_dict_arrays.cpp    Append of scalars and containers, Remove
//   mover.cpp                Move, Copy, Rename
//   plist_dict_text.cpp      Load, Write, StripAll, brackets; see reader.h and tree_lines.h
//   plist_dump.cpp           Dump
//   plist_dict_controls.cpp  windows, fields, labels, boxes, radio buttons
//   plist_dict_lists.cpp     lists, popups, lists of strings
class plistDict : public std::enable_shared_from_this<plistDict> {
  public:
    plistDict() = default;
    virtual ~plistDict();
    plistDict(const plistDict&) = delete;
    plistDict& operator=(const plistDict&) = delete;

    // Value of every scalar key.
    Dictionary<std::string> values;
    // Type tag of every key, scalar or container: defines which keys exist and their order.
    Dictionary<std::string> types;
    ChildList children;
    // The node's own key in its parent; "root" for the root of a document.
    std::string name;
    // The keys of the children, at the same positions.
    const ChildNames childrenNames{children};
    // Number of the latest array element.
    int32_t indexOf = -1;
    bool isArray = false;
    // Empty at the root.
    std::weak_ptr<plistDict> parent;
    // The document that errors are reported to; may be null.
    plist* rootClass = nullptr;
    // Cursor: zero-based position among the keys, and whether it has moved past the last one.
    int32_t currentIndex = 0;
    bool eof = false;
    // Whether a search has returned the key already.
    Dictionary<bool> searched;
    // The latest AbsolutePath.
    std::string path;

    // Reads the body of a node, from after its opening tag to its end tag.
    // - With `populate` false it reads nothing, and `stream` may be nil.
    // - Existing children of the node are kept.
    // - A line of control characters only hangs the reader.
    virtual void Load(const Ref<TextInputStream>& stream, const std::string& nodeName, bool array,
                      const std::weak_ptr<plistDict>& parentNode, plist* document, bool populate);
    // The text without its leading control characters. Never returns for a text of those only.
    virtual std::string StripAll(std::string text);
    // The first child of that name; a new dictionary if there is none. StackOverflowException if
    // the key exists but is no child.
    virtual Ref<plistDict> child(std::string_view key);
    virtual std::string GetValue(std::string_view key, const std::string& missing);
    // KeyNotFoundException for a missing key.
    virtual std::string GetType(std::string_view key) const;
    // The child named by that number; nil for none.
    virtual Ref<plistDict> index(int32_t i) const;
    // Writes the node's keys, values and children, each line indented by at least `level` tabs.
    // KeyNotFoundException for a scalar key with no value.
    virtual void Write(const Ref<TextOutputStream>& stream, int32_t level) const;
    virtual std::string GetString(std::string_view key, const std::string& missing);
    // False, with an error, for a container; KeyNotFoundException for a missing key.
    virtual bool TypeOK(std::string_view key);
    virtual int32_t GetInteger(std::string_view key, int32_t missing);
    virtual bool GetBoolean(std::string_view key, bool missing);
    // Nil for a container; the current time, with an error, for a text that is no date.
    virtual Ref<Date> GetDate(std::string_view key, const Ref<Date>& missing);
    // Stores `missing` as a "string".
    virtual std::string GetData(std::string_view key, const std::string& missing);
    // The setters refuse a key with another tag, with an error; SetData accepts any.
    virtual void SetBoolean(std::string_view key, bool value);
    // 2 for a missing key, 1 for one with the tag, else 0, with an error.
    virtual int32_t CheckType(std::string_view key, std::string_view tag);
    virtual void SetString(std::string_view key, const std::string& value);
    // Rounded half away from zero.
    virtual void SetInteger(std::string_view key, double value);
    virtual double GetDouble(std::string_view key, double missing);
    virtual void SetDouble(std::string_view key, double value);
    virtual void SetData(std::string_view key, const std::string& value);
    // The date's fields in local time, although followed by a "Z". NilObjectException for nil.
    virtual void SetDate(std::string_view key, const Ref<Date>& date);
    // A number of at least two digits.
    virtual std::string MakeTwo(int32_t n) const;
    // Add an empty container; refuse an existing key, with an error.
    virtual void AddChild(std::string_view key);
    virtual bool AddArray(std::string_view key);
    // Add an element to an array node, keyed by the number of keys so far; an error on other nodes.
    virtual void AppendInteger(int32_t value);
    // The new node has no name of its own.
    virtual void AppendDict();
    virtual void AppendArray();
    virtual void AppendBoolean(bool value);
    virtual void AppendDouble(double value);
    virtual void AppendString(const std::string& value);
    virtual void AppendData(const std::string& value);
    virtual void AppendDate(const Ref<Date>& date);
    // False, with an error, for a node that is no array.
    virtual bool CheckArray();
    // Removes a key, or, by a number or a text that reads as one, an element of an array.
    // - The scalars after a removed element move down by one.
    // - KeyNotFoundException for a missing key, and once the last element has been removed.
    // - IndexOutOfRangeException for a container with no child at its position.
    virtual void Remove(const Variant& key);
    virtual int32_t count() const;
    virtual void MoveNext();
    virtual void MoveFirst();
    // Leaves `eof` as it is.
    virtual void MoveLast();
    // "" after the last key; then the cursor is back at the first one and `eof` is set.
    virtual std::string CurrentKey();
    // Stores a "real" for a missing key or over a "double", and refuses an existing "real".
    virtual void SetReal(std::string_view key, double value);
    virtual double GetReal(std::string_view key, double missing);
    // Reads as true when missing, and stores that.
    virtual bool GetBoolean(std::string_view key);
    virtual bool Exists(std::string_view key) const;
    virtual std::string GetData(std::string_view key);
    // The current time when missing.
    virtual Ref<Date> GetDate(std::string_view key);
    virtual double GetDouble(std::string_view key);
    virtual int32_t GetInteger(std::string_view key);
    virtual double GetReal(std::string_view key);
    virtual std::string GetString(std::string_view key);
    virtual std::string GetValue(std::string_view key);
    // Encode and decode the angle brackets, and nothing else.
    virtual std::string BracketsToCode(std::string_view text) const;
    virtual std::string CodeToBrackets(std::string_view text) const;
    // Reports to the document; in its debug mode an error also shows a message box.
    virtual void SetError(bool flag, const std::string& message);
    // Appends the node's lines to the clipboard, with search marks, each child's lines before its
    // parent's. Main thread.
    virtual void Dump(int32_t level) const;
    // Each part in hexadecimal without padding, while reading takes fixed pairs of digits: a part
    // below 16 is read as another value.
    virtual void SetColor(std::string_view key, Color color);
    virtual Color GetColor(std::string_view key);
    virtual Color GetColor(std::string_view key, Color missing);
    // Store and restore title and frame of a window.
    // - The frame is restored as stored, even if it is off screen.
    // - Restoring from a missing key stores it first.
    // - NilObjectException for a nil window, as for each nil control below.
    virtual void SetWindow(std::string_view key, const Window* window);
    virtual void GetWindow(std::string_view key, Window* window);
    virtual void AppendColor(Color color);
    virtual void AppendWindow(const Window* window);
    // Rows and selected text of a list under its name and Index. The getters store the control's
    // state first when the key is missing, and add rows to the existing ones.
    virtual void SetListbox(Listbox* listbox);
    virtual void SetPopup(PopupMenu* popup);
    virtual void GetListbox(Listbox* listbox, bool setDefault);
    virtual void GetPopup(PopupMenu* popup, bool setDefault);
    // On an array node; the key is the control's name and Index, not an element's number.
    virtual void AppendListbox(Listbox* listbox);
    virtual void AppendPopup(PopupMenu* popup);
    // Stores elements `first` to `last` as an array. Beyond the list's upper bound, `first` becomes
    // 0 and `last` that bound.
    virtual void SetList(std::string_view key, const std::vector<std::string>& list, int32_t first,
                         int32_t last);
    // The elements, from index 0 for a base of 0, else from 1, after an empty one.
    virtual void GetList(std::string_view key, std::vector<std::string>& list, int32_t base);
    // Appends an empty array; the elements go to a child "-1", a dictionary, which refuses them.
    virtual void AppendList(const std::vector<std::string>& list, int32_t first, int32_t last);
    // The state of a control under its name, which is the default of its getter.
    virtual void SetEditField(const EditField* field);
    virtual void GetEditField(EditField* field);
    virtual void GetCheckbox(CheckBox* box);
    virtual void SetCheckbox(const CheckBox* box);
    virtual void SetStaticText(const StaticText* label);
    virtual void GetStaticText(StaticText* label);
    virtual void SetRadio(const RadioButton* button);
    virtual void GetRadio(RadioButton* button);
    // The names from the root down, each preceded by a colon. NilObjectException on the root itself
    // and if no ancestor is named "root"; `path` then has the names found.
    virtual std::string AbsolutePath();
    // Copies a key into `destination`, and with `remove` removes it here.
    // - The copy is named `newName` unless that is empty.
    // - A container arrives as a dictionary; it merges into an existing one.
    // - StackOverflowException for a container copied into itself.
    virtual void Move(const std::string& key, const Ref<plistDict>& destination, bool remove,
                      const std::string& newName);
    virtual void Move(const std::string& key, const Ref<plistDict>& destination);
    virtual void Copy(const std::string& key, const Ref<plistDict>& destination);
    virtual void Rename(const std::string& oldKey, const std::string& newKey);

  private:
    // Stores a scalar, tagged `tag`, unless the key has a tag other than `accepted`. Returns
    // whether it did.
    bool store(std::string_view key, std::string_view accepted, std::string_view tag,
               std::string value);
    void put(std::string_view key, std::string_view tag, std::string value);
    // Adds an element to an array node.
    void append(std::string_view tag, std::string value);
    double getNumber(std::string_view key);
    std::string dateText(const Date& date) const;
    // Adds a new child node under the key.
    void addNode(std::string_view key, std::string_view tag, std::string nodeName);
    void removeKey(const std::string& key);
    void removeElement(int32_t i);
    void shiftDown(int32_t removed, int32_t last);
    void BuildPath(const plistDict* node, const std::string& text);
    void storeFrame(const Window& window);
    // Adds the node for a list's state. Returns its empty array of elements, nil if the key could
    // not be removed before.
    Ref<plistDict> addListNode(const std::string& key, const std::string& selected);
};

}  // namespace bracken
