#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "framework/files/text_input_stream.h"
#include "framework/files/text_output_stream.h"
#include "framework/ref.h"
#include "framework/text/dictionary.h"
#include "plist/child_list.h"

namespace bracken {

class plist;
class Window;

// One node of a property list: a dictionary, or an array, which is a dictionary with the keys "0",
// "1", "2". Every value is text beside a type tag ("string", "integer", "boolean", "dict", ...).
//
// A getter with a default writes that default into the tree when the key is missing, so reading a
// setting creates it. Failures are not raised: they go to the document's `error` and
// `errorMessage`, the call returns a neutral value, and almost every operation first clears what
// stood there. Keys and tags are compared without regard to letter case.
//
// A node owns its children. It is always held by a shared pointer and is used only while its
// document lives. Holding the baton; never given up here.
class plistDict : public std::enable_shared_from_this<plistDict> {
  public:
    plistDict() = default;
    virtual ~plistDict();
    plistDict(const plistDict&) = delete;
    plistDict& operator=(const plistDict&) = delete;

    // Value of every scalar key.
    Dictionary<std::string> values;
    // Type tag of every key, scalar or container: this map says which keys exist and their order.
    Dictionary<std::string> types;
    ChildList children;
    // The node's own key in its parent; "root" for the root of a document.
    std::string name;
    // Number of the latest array element.
    int32_t indexOf = -1;
    bool isArray = false;
    // Empty at the root.
    std::weak_ptr<plistDict> parent;
    // The document that errors are reported to; may be null.
    plist* rootClass = nullptr;
    // Cursor: zero-based position among the keys, and whether it has run past the last one.
    int32_t currentIndex = 0;
    bool eof = false;
    // Whether a search has returned the key already.
    Dictionary<bool> searched;

    // Reads the body of a node from behind its opening tag up to its end tag; with `populate` false
    // it reads nothing, and `stream` may be nil. The children that the node has already are kept. A
    // line of nothing but control characters hangs the reader.
    virtual void Load(const Ref<TextInputStream>& stream, const std::string& nodeName, bool array,
                      const std::weak_ptr<plistDict>& parentNode, plist* document, bool populate);
    // The text less its leading control characters. Never returns for a text of nothing else.
    virtual std::string StripAll(std::string text);
    // The first child of that name; made as a dictionary if there is none. StackOverflowException
    // if the key is there but no child.
    virtual Ref<plistDict> child(std::string_view key);
    virtual std::string GetValue(std::string_view key, const std::string& missing);
    // KeyNotFoundException for a missing key.
    virtual std::string GetType(std::string_view key) const;
    // The child named by that number; nil for none.
    virtual Ref<plistDict> index(int32_t i) const;
    // Writes the node's keys, values and children, each line behind `level` tabs.
    // KeyNotFoundException for a scalar key with no value.
    virtual void Write(const Ref<TextOutputStream>& stream, int32_t level) const;
    virtual std::string GetString(std::string_view key, const std::string& missing);
    // False, with an error, for a container; KeyNotFoundException for a missing key.
    virtual bool TypeOK(std::string_view key);
    virtual int32_t GetInteger(std::string_view key, int32_t missing);
    virtual bool GetBoolean(std::string_view key, bool missing);
    // The setters refuse a key that bears another tag, with an error.
    virtual void SetBoolean(std::string_view key, bool value);
    // 2 for a missing key, 1 for one that bears the tag, else 0, with an error.
    virtual int32_t CheckType(std::string_view key, std::string_view tag);
    virtual void SetString(std::string_view key, const std::string& value);
    // Rounded half away from zero.
    virtual void SetInteger(std::string_view key, double value);
    // A number of at least two digits.
    virtual std::string MakeTwo(int32_t n) const;
    // Adds an empty dictionary; refuses an existing key, with an error.
    virtual void AddChild(std::string_view key);
    // False, with an error, for a node that is no array.
    virtual bool CheckArray();
    virtual int32_t count() const;
    virtual void MoveNext();
    virtual void MoveFirst();
    // Leaves `eof` as it is.
    virtual void MoveLast();
    // "" behind the last key; the cursor is then at the first one again, and `eof` set.
    virtual std::string CurrentKey();
    // Reads as true when missing, and stores that.
    virtual bool GetBoolean(std::string_view key);
    virtual bool Exists(std::string_view key) const;
    virtual int32_t GetInteger(std::string_view key);
    virtual std::string GetString(std::string_view key);
    virtual std::string GetValue(std::string_view key);
    // Encode and decode the angle brackets, and nothing else.
    virtual std::string BracketsToCode(std::string_view text) const;
    virtual std::string CodeToBrackets(std::string_view text) const;
    // Reports to the document; in its debug mode an error also shows a message box.
    virtual void SetError(bool flag, const std::string& message);
    // Stores title and frame of a window, and restores them as they were stored, off screen or not.
    // A key that is missing is stored first. NilObjectException for null.
    virtual void SetWindow(std::string_view key, const Window* window);
    virtual void GetWindow(std::string_view key, Window* window);

  private:
    // Stores a scalar unless the key bears another tag than `checked`.
    bool store(std::string_view key, std::string_view checked, std::string_view tag,
               std::string value);
    // Adds a node of this node's document under the key.
    plistDict& adopt(std::string_view key, std::string_view tag, std::string nodeName);
};

}  // namespace bracken
