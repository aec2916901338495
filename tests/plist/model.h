#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "framework/exception.h"
#include "framework/files/text_input_stream.h"
#include "framework/graphics/color.h"
#include "framework/ref.h"
#include "framework/text/text.h"
#include "framework/values/date.h"

// The rules of the store told a second time, by the plainest means: lists searched from front to
// back, and recursion. It is slow and holds for trees of some hundred keys; what the store does is
// compared with it.
namespace bracken::model {

template <class V>
class Map {
  public:
    int Count() const { return static_cast<int>(entries_.size()); }
    const std::string& Key(int i) const { return entry(i).first; }
    const V& ValueAt(int i) const { return entry(i).second; }
    bool HasKey(const std::string& key) const { return find(key) < entries_.size(); }
    const V& Value(const std::string& key) const { return entries_[known(key)].second; }
    void Value(const std::string& key, V value) {
        if (!HasKey(key)) entries_.push_back({key, V()});
        entries_[find(key)].second = std::move(value);
    }
    void Remove(const std::string& key) { entries_.erase(entries_.begin() + known(key)); }

  private:
    using Entry = std::pair<std::string, V>;

    size_t find(const std::string& key) const {
        size_t i = 0;
        while (i < entries_.size() && !equal(entries_[i].first, key)) ++i;
        return i;
    }
    size_t known(const std::string& key) const {
        return HasKey(key) ? find(key) : throw KeyNotFoundException(key);
    }
    const Entry& entry(int i) const {
        return i >= 0 && i < Count() ? entries_[i] : throw IndexOutOfRangeException();
    }

    std::vector<Entry> entries_;
};

class Node;
using NodeRef = std::shared_ptr<Node>;

// The searches and the error state of a document.
class Document {
  public:
    explicit Document(const std::string& message);

    NodeRef root;
    bool error = true;
    std::string errorMessage;
    NodeRef foundDict;
    std::string foundKey, foundValue, foundType, lastSearch;

    bool Find(const std::string& text);
    bool FindNext(const std::string& text);
    void ClearSearch(const NodeRef& node);

  private:
    bool search(const NodeRef& node, const std::string& text);
};

class Node : public std::enable_shared_from_this<Node> {
  public:
    Map<std::string> values, types;
    std::vector<NodeRef> children{nullptr};
    std::vector<std::string> childrenNames{""};
    std::string name;
    int32_t indexOf = -1;
    bool isArray = false;
    std::weak_ptr<Node> parent;
    Document* rootClass = nullptr;
    int32_t currentIndex = 0;
    bool eof = false;
    Map<bool> searched;
    std::string path;

    void Load(TextInputStream* stream, const std::string& nodeName, bool array,
              const std::weak_ptr<Node>& above, Document* document, bool populate);
    // The node's lines, each with a line feed.
    std::string Write(int level) const;

    bool Exists(const std::string& key) const { return types.HasKey(key); }
    int32_t count() const { return types.Count(); }
    std::string GetType(const std::string& key) const { return types.Value(key); }
    NodeRef child(const std::string& key);
    NodeRef index(int32_t i) const;
    bool TypeOK(const std::string& key);
    int32_t CheckType(const std::string& key, const std::string& tag);
    bool CheckArray();
    void SetError(bool flag, const std::string& message);
    void MoveFirst();
    void MoveNext();
    void MoveLast();
    std::string CurrentKey();

    void SetString(const std::string& key, const std::string& value);
    void SetInteger(const std::string& key, double value);
    void SetBoolean(const std::string& key, bool value);
    void SetDouble(const std::string& key, double value);
    void SetReal(const std::string& key, double value);
    void SetData(const std::string& key, const std::string& value);
    void SetDate(const std::string& key, const Ref<Date>& date);
    void SetColor(const std::string& key, Color color);
    std::string GetValue(const std::string& key, const std::string& missing);
    std::string GetString(const std::string& key, const std::string& missing);
    std::string GetData(const std::string& key, const std::string& missing);
    int32_t GetInteger(const std::string& key, int32_t missing);
    bool GetBoolean(const std::string& key, bool missing);
    double GetDouble(const std::string& key, double missing);
    double GetReal(const std::string& key, double missing);
    Ref<Date> GetDate(const std::string& key, const Ref<Date>& missing);
    Color GetColor(const std::string& key, Color missing);

    void AppendString(const std::string& value) { append("string", value); }
    void AppendInteger(int32_t value) { append("integer", Str(value)); }
    void AppendDouble(double value) { append("double", Str(value)); }
    void AppendBoolean(bool value) { append("boolean", value ? "true" : "false"); }
    void AppendDate(const Ref<Date>& date);
    void AppendData(const std::string& value) { append("data", value); }
    void AppendColor(Color color);
    void AppendDict();
    void AppendArray();
    void AppendList(const std::vector<std::string>& list, int32_t first, int32_t last);
    void SetList(const std::string& key, const std::vector<std::string>& list, int32_t first,
                 int32_t last);
    void GetList(const std::string& key, std::vector<std::string>& list, int32_t base);

    void AddChild(const std::string& key);
    bool AddArray(const std::string& key);
    void Remove(const std::string& key);
    void Remove(int32_t i);
    void Move(const std::string& key, const NodeRef& destination, bool remove,
              const std::string& newName);
    void Rename(const std::string& oldKey, const std::string& newKey);
    std::string AbsolutePath();

  private:
    void put(const std::string& key, const std::string& checked, const std::string& tag,
             const std::string& value);
    void append(const std::string& tag, const std::string& value);
    double number(const std::string& key);
    void add(const std::string& key, const std::string& tag, const std::string& nodeName);
    // False where there is nothing to copy. StackOverflowException for what has no end.
    bool copy(const std::string& key, const NodeRef& to, const std::string& target, int depth);
    void copyContainer(const std::string& key, const NodeRef& to, const std::string& target,
                       int depth);
    void copyScalar(const std::string& key, Node& to, const std::string& target);
    void buildPath(const Node* node);
};

bool isContainer(const std::string& tag);

}  // namespace bracken::model
