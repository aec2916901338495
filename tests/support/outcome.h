#pragma once

#include <memory>
#include <string>

#include "framework/exception.h"
#include "framework/threads/baton.h"
#include "framework/threads/thread.h"

namespace bracken::test {

// A run that is always waiting for the baton, so that it takes one turn at each yield of others.
class Turns : public Thread {
  public:
    int taken = 0;

  protected:
    void Event_Run() override {
        for (;;) {
            if (!baton::contended()) continue;
            taken++;
            Yield();
        }
    }
};

// How often `act` gives up the baton on this thread, by yielding or in a call that blocks.
template <class Act>
int yieldsOf(const Act& act) {
    auto turns = std::make_shared<Turns>();
    turns->Run();
    while (turns->taken == 0) Thread::Yield();
    const int before = turns->taken;
    act();
    turns->Kill();
    return turns->taken - before;
}

// The text with which `act` would end the program; "" if it would not.
template <class Act>
std::string endOf(const Act& act) {
    try {
        act();
        return "";
    } catch (const Exception& error) {
        return error.what();
    }
}

}  // namespace bracken::test
