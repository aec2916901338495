#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>

#include "framework/files/folder_item.h"
#include "framework/text/text.h"
#include "plist/plist.h"
#include "tests/fuzz/trees.h"

using namespace bracken;

namespace {

constexpr const char* keys[] = {"a", "A", "b", "c", "list", "0", "1", "2", "3", "-1", "", "x.5"};
constexpr const char* texts[] = {
    "",       "text", "TRUE",   "12",        "1e9", "2004-03-09T07:05:01Z",
    "<&lt;>", "a\rb", "FF00FF", "not a date"};

// One document and the operations that the input chooses on its nodes.
class Session {
  public:
    Session(const uint8_t* data, size_t size) : input_(data, size) {}

    void run() {
        if (input_.ConsumeBool()) {
            document_.root->Load(make<TextInputStream>(fuzz::withoutEndlessLines(
                                     input_.ConsumeRandomLengthString(512))),
                                 "root", false, {}, &document_, true);
        }
        for (int steps = 0; input_.remaining_bytes() > 0 && steps < 200; ++steps) {
            try {
                step();
            } catch (const Exception& told) {
                checkTold(told.type());
            }
        }
        fuzz::checkTree(*document_.root);
        fuzz::checkTree(*fuzz::read(fuzz::written(*document_.root) + "</dict>", &document_));
    }

  private:
    std::string key() { return input_.PickValueInArray(keys); }
    std::string text() { return input_.PickValueInArray(texts); }
    double number() { return input_.ConsumeFloatingPointInRange<double>(-300, 5e9); }

    // A node on a random way down from the root.
    Ref<plistDict> node() {
        Ref<plistDict> at = document_.root;
        for (int depth = input_.ConsumeIntegralInRange(0, 4); depth > 0; --depth) {
            const int count = at->children.upperBound();
            if (count == 0) break;
            at = Ref<plistDict>(at->children.node(input_.ConsumeIntegralInRange(1, count)));
        }
        return at;
    }

    static void checkTold(const std::string& type) {
        const bool told = type == "KeyNotFoundException" || type == "StackOverflowException" ||
                          type == "IndexOutOfRangeException" || type == "NilObjectException";
        if (!told) std::abort();
    }

    void step() {
        const Ref<plistDict> at = node();
        switch (input_.ConsumeIntegralInRange(0, 4)) {
            case 0:
                return set(*at);
            case 1:
                return get(*at);
            case 2:
                return append(*at);
            case 3:
                return edit(*at);
            default:
                return walk(*at);
        }
    }

    void set(plistDict& at) {
        switch (input_.ConsumeIntegralInRange(0, 8)) {
            case 0:
                return at.SetString(key(), text());
            case 1:
                return at.SetInteger(key(), number());
            case 2:
                return at.SetBoolean(key(), input_.ConsumeBool());
            case 3:
                return at.SetDouble(key(), number());
            case 4:
                return at.SetReal(key(), number());
            case 5:
                return at.SetData(key(), text());
            case 6:
                return at.SetDate(key(), input_.ConsumeBool() ? make<Date>() : Ref<Date>());
            case 7:
                return at.AddChild(key());
            default:
                at.AddArray(key());
        }
    }

    void get(plistDict& at) {
        switch (input_.ConsumeIntegralInRange(0, 8)) {
            case 0:
                at.GetString(key(), text());
                return;
            case 1:
                at.GetInteger(key());
                return;
            case 2:
                at.GetBoolean(key());
                return;
            case 3:
                at.GetReal(key());
                return;
            case 4:
                at.GetDate(key());
                return;
            case 5:
                at.GetColor(key());
                return;
            case 6:
                at.child(key());
                return;
            case 7:
                at.index(input_.ConsumeIntegralInRange(-1, 4));
                return;
            default:
                at.GetDouble(key());
        }
    }

    void append(plistDict& at) {
        switch (input_.ConsumeIntegralInRange(0, 5)) {
            case 0:
                return at.AppendString(text());
            case 1:
                return at.AppendDouble(number());
            case 2:
                return at.AppendDict();
            case 3:
                return at.AppendArray();
            case 4:
                return at.AppendList({"x", "y"}, 0, 1);
            default:
                return at.SetList(key(), {"x", "y", "z"}, input_.ConsumeIntegralInRange(-1, 4),
                                  input_.ConsumeIntegralInRange(-1, 4));
        }
    }

    void edit(plistDict& at) {
        switch (input_.ConsumeIntegralInRange(0, 3)) {
            case 0:
                return at.Remove(key());
            case 1:
                return at.Remove(input_.ConsumeIntegralInRange(-2, 5));
            case 2:
                return move(at);
            default:
                return at.Rename(key(), key());
        }
    }

    // A copy can double a tree, and one into itself grows it by a multiple of its depth, so it is
    // left out once the tree has grown.
    void move(plistDict& at) {
        if (fuzz::keysIn(*document_.root) > 60) return;
        at.Move(key(), node(), input_.ConsumeBool(), input_.ConsumeBool() ? key() : "");
    }

    void walk(plistDict& at) {
        switch (input_.ConsumeIntegralInRange(0, 6)) {
            case 0:
                return at.MoveFirst();
            case 1:
                return at.MoveNext();
            case 2:
                return at.MoveLast();
            case 3:
                at.CurrentKey();
                return;
            case 4:
                document_.Find(text());
                return;
            case 5:
                document_.FindNext(text());
                return;
            default:
                at.AbsolutePath();
        }
    }

    FuzzedDataProvider input_;
    plist document_{GetFolderItem("/nonexistent/a.plist", 0), nullptr};
};

}  // namespace

// Any sequence of operations ends in a whole tree and raises nothing but what is told.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Session(data, size).run();
    return 0;
}
