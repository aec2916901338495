#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdlib>
#include <functional>

#include "framework/text/text.h"
#include "plist/plist.h"
#include "plist/tree_lines.h"

using namespace bracken;

namespace {

class Lines : public TreeLines {
  public:
    std::string text;

  private:
    void line(std::string_view indent, std::string_view content) override {
        text.append(indent).append(content).push_back('\n');
    }
};

std::string written(const plistDict& node) {
    Lines lines;
    lines.run(node, 1);
    return lines.text;
}

// Reads the text without the lines that must hang the reader: those of control characters only.
Ref<plistDict> read(const std::string& text) {
    std::string readable;
    for (const std::string& line : Split(ReplaceAll(text, "\r", "\n"), "\n")) {
        const auto isControl = [](unsigned char c) { return c < 32; };
        if (!std::all_of(line.begin(), line.end(), isControl)) readable += line + "\n";
    }
    auto root = make<plistDict>();
    root->Load(make<TextInputStream>(readable), "root", false, {}, nullptr, true);
    return root;
}

// One operation on a random node of the tree.
void change(const Ref<plistDict>& root, FuzzedDataProvider& input) {
    const std::vector<std::string> keys = {"a", "A", "b", "list", "0", "1", "2", "-1"};
    const std::vector<std::string> texts = {"x", "<b>", "&lt;", "TRUE", "1e9", " ", "2004-03-09"};
    const auto key = [&] { return keys[input.ConsumeIntegralInRange<size_t>(0, keys.size() - 1)]; };
    const auto node = [&] {
        Ref<plistDict> at = root;
        while (at->children.upperBound() > 0 && input.ConsumeBool())
            at = Ref<plistDict>(
                at->children.node(input.ConsumeIntegralInRange(1, at->children.upperBound())));
        return at;
    };
    const Ref<plistDict> at = node();
    const std::string text = texts[input.ConsumeIntegralInRange<size_t>(0, texts.size() - 1)];
    const std::function<void()> operations[] = {
        [&] { at->SetString(key(), text); },
        [&] { at->SetBoolean(key(), input.ConsumeBool()); },
        [&] { at->child(key()); },
        [&] { at->AppendString(text); },
        [&] { at->AppendDict(); },
        [&] { at->AppendArray(); },
        [&] { at->SetList(key(), texts, 2, input.ConsumeIntegralInRange(-2, 5)); },
        [&] { at->Remove(key()); },
        [&] { at->Move(key(), node(), input.ConsumeBool(), key()); },
        [&] { at->Rename(key(), key()); },
    };
    // A copy multiplies a tree.
    const size_t last = std::size(operations) - (written(*root).size() > 5000 ? 3 : 1);
    operations[input.ConsumeIntegralInRange<size_t>(0, last)]();
}

}  // namespace

// Whatever the operations, what has been written is read and written as the same; and any text can
// be read and written.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider input(data, size);
    const std::string any = input.ConsumeRandomLengthString();
    const Ref<plistDict> root = make<plistDict>();
    root->name = "root";
    while (input.remaining_bytes() > 0) {
        try {
            change(root, input);
        } catch (const StackOverflowException&) {
            // A copy into itself, as far as it came.
            return 0;
        } catch (const Exception&) {
        }
    }
    // Removing from an array of containers gives an odd tree, which reading puts right.
    const std::string text = written(*read(written(*root)));
    if (written(*read(text)) != text) std::abort();
    try {
        static_cast<void>(written(*read(any)));
    } catch (const KeyNotFoundException&) {
        // A scalar without a value.
    }
    return 0;
}
