/*
 * SignalStop.cpp - a thread that waits for SIGINT and SIGTERM.
 */
#include "SignalStop.h"

#include <pthread.h>

#include <ctime>

namespace corvane::server {

SignalStop::SignalStop()
{
    sigemptyset(&signals_);
    sigaddset(&signals_, SIGINT);
    sigaddset(&signals_, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals_, &previous_);
    waiter_ = std::thread([this] { waitForSignals(); });
}

SignalStop::~SignalStop()
{
    {
        std::lock_guard lock(mutex_);
        ending_ = true;
    }
    pthread_kill(waiter_.native_handle(), SIGTERM);
    waiter_.join();
    /* A signal that came meanwhile would end the process once unblocked. */
    timespec now{0, 0};
    while (sigtimedwait(&signals_, nullptr, &now) > 0) {
    }
    pthread_sigmask(SIG_SETMASK, &previous_, nullptr);
}

void SignalStop::waitForSignals()
{
    while (true) {
        int signal = 0;
        sigwait(&signals_, &signal);
        {
            std::lock_guard lock(mutex_);
            if (ending_)
                return;
        }
        request();
    }
}

/* The hook runs with the lock held, so that forgetHook() cannot return
   while it runs. */
void SignalStop::whenStopped(std::function<void()> hook)
{
    std::lock_guard lock(mutex_);
    if (requested_)
        hook();
    else
        hook_ = std::move(hook);
}

void SignalStop::forgetHook()
{
    std::lock_guard lock(mutex_);
    hook_ = nullptr;
}

void SignalStop::request()
{
    std::lock_guard lock(mutex_);
    if (requested_)
        return;
    requested_ = true;
    if (hook_)
        hook_();
    hook_ = nullptr;
    stopped_.notify_all();
}

void SignalStop::wait()
{
    std::unique_lock lock(mutex_);
    stopped_.wait(lock, [this] { return requested_; });
}

bool SignalStop::requested() const
{
    std::lock_guard lock(mutex_);
    return requested_;
}

} // namespace corvane::server
