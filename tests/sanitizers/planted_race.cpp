// Two threads write one number with nothing between them. scripts/check builds this with the thread
// sanitizer and fails unless it is reported: silence over the suite means something only then.
#include <thread>

int main() {
    int shared = 0;
    std::thread other([&shared] { ++shared; });
    ++shared;
    other.join();
    return shared == 2 ? 0 : 1;
}
