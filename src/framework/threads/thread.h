#pragma once

#include <atomic>
#include <memory>

namespace bracken {

// Leaves a killed run, or a handler whose process is quitting, for its outermost frame. Not an
// Exception: nothing in the program catches it.
struct UnwindSignal {};

// A cooperative thread of the program. Its code runs holding the baton, and gives it up at its
// stopping points only: Yield, and blocking calls. All members are called holding the baton.
class Thread : public std::enable_shared_from_this<Thread> {
  public:
    virtual ~Thread();

    int Priority = 5;
    int StackSize = 0;

    // Makes the thread ready; the statements after it come first. The object must be owned by a
    // shared pointer, and the run keeps it alive. ThreadAlreadyRunningException while a run is
    // alive.
    void Run();
    // Ends the run; does nothing on an idle thread.
    // - Returns at once, and from then on the run touches nothing.
    // - The run unwinds at its next stopping point.
    // - A box that the run shows is closed.
    void Kill();
    bool running() const;

    // A stopping point: hands the baton over if somebody waits for it, and leaves the run if it has
    // been killed meanwhile. On the main thread it lets a run go on.
    static void Yield();

    // Leaves the run that the calling thread executes if it has been killed; does nothing on any
    // other thread. To be called after the baton has been taken back by hand.
    static void leaveIfKilled();
    // Whether the run that the calling thread executes has been killed: valid as long as the run,
    // and for any thread to read. Called on any other thread, a flag that stays false.
    static const std::atomic<bool>* killedFlag();

    // Whether any run is alive.
    static bool anyRunning();
    // Kills all runs.
    static void killAll();
    // Waits for the threads of all runs, which must have been killed or ended. Main thread, without
    // the baton.
    static void joinAll();

    struct RunState;

  protected:
    // The body of the thread.
    virtual void Event_Run() = 0;

  private:
    static void execute(const std::shared_ptr<Thread>& self, const std::shared_ptr<RunState>& run);

    std::shared_ptr<RunState> run_;
};

}  // namespace bracken
