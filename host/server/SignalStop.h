/*
 * SignalStop.h - stopping on Ctrl-C (SIGINT) or SIGTERM. While it lives the
 * two signals are blocked in the thread that made it and in every thread
 * started after, and one thread of its own waits for them: the first one
 * runs the stop hook there (so that a box waiting for the user is answered
 * at once) and ends wait().
 */
#ifndef CORVANE_SERVER_SIGNALSTOP_H
#define CORVANE_SERVER_SIGNALSTOP_H

#include <signal.h>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace corvane::server {

class SignalStop {
public:
    SignalStop();
    /* Stops waiting, forgets signals still pending and unblocks them. */
    ~SignalStop();
    SignalStop(const SignalStop &) = delete;
    SignalStop &operator=(const SignalStop &) = delete;

    /* Runs hook on the first stop (at once when it has come already). */
    void whenStopped(std::function<void()> hook);
    /* Forgets the hook, once it has run if it is running. */
    void forgetHook();
    /* Stops as a signal does. */
    void request();
    /* Waits until a signal or a request came. */
    void wait();
    bool requested() const;

private:
    void waitForSignals();

    sigset_t signals_{};
    sigset_t previous_{};
    mutable std::mutex mutex_;
    std::condition_variable stopped_;
    bool requested_ = false;
    bool ending_ = false;
    std::function<void()> hook_;
    std::thread waiter_;
};

} // namespace corvane::server

#endif
