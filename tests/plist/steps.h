#pragma once

#include <string>
#include <string_view>

namespace bracken::test {

// Where the choices of a random sequence come from.
class Choices {
  public:
    Choices() = default;
    virtual ~Choices() = default;
    Choices(const Choices&) = delete;
    Choices& operator=(const Choices&) = delete;

    // A number below `count`.
    virtual int below(int count) = 0;
    virtual bool atEnd() = 0;
};

// Plays operations on a document of the store and on its model until the choices are at an end, and
// compares results, errors and trees after each. Gives the step that made a difference, with both
// sides of it; "" for none.
std::string differenceInPlay(Choices& choices);

// Reads the text into a tree of the store and into the model, writes both and compares. Gives both
// sides of a difference; "" for none.
std::string differenceInReading(std::string_view text);

// A text out of pieces that mean something to the reader, in any order.
std::string anyText(Choices& choices, int pieces);

// The text with the lines emptied that would hang the reader: those of control characters only.
std::string withoutEndlessLines(std::string_view text);

}  // namespace bracken::test
