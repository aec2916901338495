#pragma once

#include <cstdint>
#include <string>

namespace bracken {

// A file open for reading bytes. Blocking reads give up the baton (threads/baton.h) while they
// wait, so any thread of the program may call this, holding the baton.
class BinaryStream {
  public:
    // Takes ownership of the descriptor; -1 stands for something that reads as empty.
    explicit BinaryStream(int descriptor);
    ~BinaryStream();
    BinaryStream(const BinaryStream&) = delete;
    BinaryStream& operator=(const BinaryStream&) = delete;

    // The next `count` bytes, fewer at the end of the file and where reading breaks off; none for a
    // negative count. The second argument stands for the text encoding, of which there is none.
    std::string Read(int32_t count, std::nullptr_t encoding);
    void Close();

  private:
    int descriptor_;
};

}  // namespace bracken
