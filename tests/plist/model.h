#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "framework/exception.h"
#include "framework/files/streams.h"
#include "framework/graphics/color.h"
#include "framework/ref.h"
#include "framework/text/text.h"
#include "framework/values/date.h"

// The rules of the store told a second time, by the plainest means: lists searched from front to
// back, and recursion. It is slow and holds for trees of some hundred keys; what the store does is
// compared with it.
namespace bracken::model {

using Text = const std::string&;
using Texts = std::vector<std::string>;

// An element, or IndexOutOfRangeException.
template <class List>
auto& at(List& list, int64_t i) {
    if (i < 0 || i >= static_cast<int64_t>(list.size())) throw IndexOutOfRangeException();
    return list[static_cast<size_t>(i)];
}

template <class V>
class Map {
  public:
    int Count() const { return static_cast<int>(entries_.size()); }
    Text Key(int i) const { return at(entries_, i).first; }
    const V& ValueAt(int i) const { return at(entries_, i).second; }
    bool HasKey(Text key) const { return find(key) < entries_.size(); }
    const V& Value(Text key) const { return entries_[known(key)].second; }
    void Value(Text key, V value) {
        if (!HasKey(key)) entries_.push_back({key, V()});
        entries_[find(key)].second = std::move(value);
    }
    void Remove(Text key) { entries_.erase(entries_.begin() + known(key)); }

  private:
    size_t find(Text key) const {
        size_t i = 0;
        while (i < entries_.size() && !equal(entries_[i].first, key)) ++i;
        return i;
    }
    size_t known(Text key) const {
        return HasKey(key) ? find(key) : throw KeyNotFoundException(key);
    }

    std::vector<std::pair<std::string, V>> entries_;
};

class Document;
class Node;

// Two arrays side by side; element 0 is never used.
class Children {
  public:
    int upperBound() const { return nodes_.empty() ? 0 : static_cast<int>(nodes_.size()) - 1; }
    const Ref<Node>& node(int i) const { return nodes_[i]; }
    Text name(int i) const { return names_[i]; }
    void append(Text name, const Ref<Node>& node) {
        names_.push_back(name);
        nodes_.push_back(node);
    }
    void removeAt(int64_t i) {
        at(nodes_, i);
        nodes_.erase(nodes_.begin() + i);
        names_.erase(names_.begin() + i);
    }

  private:
    std::vector<Ref<Node>> nodes_{nullptr};
    Texts names_{""};
};

class Node : public std::enable_shared_from_this<Node> {
  public:
    Map<std::string> values, types;
    Children children;
    std::string name, path;
    int32_t indexOf = -1, currentIndex = 0;
    bool isArray = false, eof = false;
    std::weak_ptr<Node> parent;
    Document* rootClass = nullptr;
    Map<bool> searched;

    void Load(const Ref<TextInputStream>& stream, Text nodeName, bool array,
              const std::weak_ptr<Node>& above, Document* document, bool populate);
    // The node's lines, each with a line feed.
    std::string Write(int level) const;

    bool Exists(Text key) const { return types.HasKey(key); }
    int32_t count() const { return types.Count(); }
    std::string GetType(Text key) const { return types.Value(key); }
    Ref<Node> child(Text key);
    Ref<Node> index(int32_t i) const { return childNamed(Str(i)); }
    bool TypeOK(Text key);
    int32_t CheckType(Text key, Text tag);
    bool CheckArray();
    void SetError(bool flag, Text message);
    void MoveFirst() { moveTo(0, false); }
    void MoveNext() {
        currentIndex < count() - 1 ? moveTo(currentIndex + 1, eof) : moveTo(0, true);
    }
    void MoveLast() { moveTo(count() - 1, eof); }
    std::string CurrentKey();

    void SetString(Text key, Text value) { set(key, "string", "string", value); }
    void SetInteger(Text key, double value) { set(key, "integer", "integer", Format(value, "-#")); }
    void SetBoolean(Text key, bool value);
    void SetDouble(Text key, double value) { set(key, "real", "real", Str(value)); }
    void SetReal(Text key, double value) { set(key, "double", "real", Str(value)); }
    void SetData(Text key, Text value) { put(key, "data", value); }
    void SetDate(Text key, const Ref<Date>& date);
    void SetColor(Text key, Color color);
    std::string GetValue(Text key, Text missing);
    std::string GetString(Text key, Text missing) { return GetValue(key, missing); }
    std::string GetData(Text key, Text missing) { return GetValue(key, missing); }
    int32_t GetInteger(Text key, int32_t missing);
    bool GetBoolean(Text key, bool missing);
    double GetDouble(Text key, double missing);
    double GetReal(Text key, double missing);
    Ref<Date> GetDate(Text key, const Ref<Date>& missing);
    Color GetColor(Text key, Color missing);

    void AppendString(Text value) { append("string", value); }
    void AppendInteger(int32_t value) { append("integer", Str(value)); }
    void AppendDouble(double value) { append("double", Str(value)); }
    void AppendBoolean(bool value) { append("boolean", value ? "true" : "false"); }
    void AppendDate(const Ref<Date>& date);
    void AppendData(Text value) { append("data", value); }
    void AppendColor(Color color);
    void AppendDict() { appendNode("dict"); }
    void AppendArray() { appendNode("array"); }
    void AppendList(const Texts& list, int32_t first, int32_t last);
    void SetList(Text key, const Texts& list, int32_t first, int32_t last);
    void GetList(Text key, Texts& list, int32_t base);

    void AddChild(Text key) { add(key, "dict", "Child"); }
    bool AddArray(Text key) { return add(key, "array", "Array"); }
    void Remove(Text key);
    void Remove(int32_t i);
    void Move(Text key, const Ref<Node>& destination, bool remove, Text newName);
    void Rename(Text oldKey, Text newKey);
    std::string AbsolutePath();

  private:
    void moveTo(int32_t position, bool atEnd);
    Ref<Node> childNamed(Text key) const;
    void put(Text key, Text tag, Text value);
    void set(Text key, Text checked, Text tag, Text value);
    void append(Text tag, Text value);
    double number(Text key);
    bool add(Text key, Text tag, Text word);
    void appendNode(Text tag);
    void addNode(Text key, Text tag, Text nodeName);
    // False where there is nothing to copy. StackOverflowException for what has no end.
    bool copy(Text key, const Ref<Node>& to, Text target, int depth);
    void copyContainer(Text key, const Ref<Node>& to, Text target, int depth);
    void copyScalar(Text key, Node& to, Text target);
    void buildPath(const Node* node);
};

// The searches and the error state of a document.
class Document {
  public:
    explicit Document(Text message);

    Ref<Node> root;
    bool error = true;
    std::string errorMessage;
    Ref<Node> foundDict;
    std::string foundKey, foundValue, foundType, lastSearch;

    bool Find(Text text);
    bool FindNext(Text text);
    void ClearSearch(const Ref<Node>& node);

  private:
    bool search(const Ref<Node>& node, Text text);
};

bool isContainer(Text tag);

}  // namespace bracken::model
