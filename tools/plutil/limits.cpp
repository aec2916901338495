#include "tools/plutil/limits.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "tools/plutil/object_table.h"

namespace bracken::plutil {

namespace {

// What a line of XML counts as, in bytes: its tags, and the library's node.
constexpr uint64_t bytesPerLine = 64;

// The size of an object as XML, with all below it.
struct Extent {
    enum class State { unseen, open, done } state = State::unseen;
    int depth = 1;
    uint64_t lines = 1;
    uint64_t bytes = 0;
};

class Measurement {
  public:
    explicit Measurement(std::string_view binary) : table_(binary) {
        // With a line for each it would be; none is there that nothing refers to.
        if (table_.count() > maxBytes / bytesPerLine) throw std::runtime_error("is too large");
        extents_.resize(table_.count());
    }

    // Visits each object once, its parts first. Without recursion, whatever the depth.
    void run() {
        std::vector<uint64_t> pending;
        appendReference(table_.root(), pending);
        while (!pending.empty()) {
            uint64_t index = pending.back();
            Extent& extent = extents_[index];
            if (extent.state == Extent::State::unseen) {
                extent.state = Extent::State::open;
                appendParts(table_.object(index), pending);
                continue;
            }
            pending.pop_back();
            // What is shared may be pending several times.
            if (extent.state == Extent::State::open) measure(table_.object(index), extent);
        }
    }

  private:
    void appendParts(const ObjectTable::Object& object, std::vector<uint64_t>& pending) {
        references_ += object.children.size();
        if (references_ * bytesPerLine > maxBytes) throw std::runtime_error("is too large");
        for (uint64_t child : object.children) appendReference(child, pending);
    }

    void appendReference(uint64_t index, std::vector<uint64_t>& pending) {
        if (index >= extents_.size() || extents_[index].state == Extent::State::open)
            throw std::runtime_error("not a property list");
        if (extents_[index].state == Extent::State::unseen) pending.push_back(index);
    }

    void measure(const ObjectTable::Object& object, Extent& extent) {
        extent.state = Extent::State::done;
        extent.lines = object.container ? 2 : 1;
        extent.bytes = object.content + extent.lines * bytesPerLine;
        for (uint64_t child : object.children) {
            const Extent& part = extents_[child];
            extent.depth = std::max(extent.depth, part.depth + 1);
            extent.lines += part.lines;
            // Each line of it has one more tab here.
            extent.bytes += part.bytes + part.lines;
        }
        if (extent.depth > maxDepth) throw std::runtime_error("is nested too deeply");
        if (extent.bytes > maxBytes) throw std::runtime_error("is too large");
    }

    ObjectTable table_;
    std::vector<Extent> extents_;
    uint64_t references_ = 0;
};

}  // namespace

void checkExpansion(std::string_view binary) {
    Measurement(binary).run();
}

}  // namespace bracken::plutil
