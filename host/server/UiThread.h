/*
 * UiThread.h - the host's user-interface thread: the one thread that runs
 * the add-on's callbacks and reads the dialog toolkit and the data sets,
 * one task at a time. HTTP handler threads hand it tasks and wait for them.
 *
 * Tasks are actions (they may call the add-on) or reads (they only read
 * the host's state). While a callback waits for the user to answer a box,
 * the thread keeps running reads, as a modal dialog keeps the rest of an
 * application drawn; actions wait until the box is answered.
 */
#ifndef CORVANE_SERVER_UITHREAD_H
#define CORVANE_SERVER_UITHREAD_H

#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace corvane::server {

class UiThread {
public:
    enum class Kind { action, read };

    UiThread();
    /* Stops as stop() does, with nothing last. */
    ~UiThread();
    UiThread(const UiThread &) = delete;
    UiThread &operator=(const UiThread &) = delete;

    /* Runs task on the thread and waits until it has run; an exception it
       throws is thrown here. false, with task not run, once the thread
       stops taking tasks. */
    bool run(Kind kind, std::function<void()> task);

    /* Inside a task, on the thread: waits until done() holds or the thread
       stops taking tasks, running read tasks meanwhile. done() is called
       with the queue's lock held: it must not call back into this object. */
    void waitModal(const std::function<bool()> &done);
    /* Tells a modal wait that what done() looks at may have changed. */
    void wake();

    /* No task is taken from now on; the tasks waiting are dropped (their
       run() returns false). A modal wait returns. */
    void refuseTasks();
    /* Refuses tasks, runs last on the thread once the task running has
       ended, and ends the thread. Later calls do nothing. */
    void stop(const std::function<void()> &last = {});

    bool onThread() const { return std::this_thread::get_id() == thread_.get_id(); }

private:
    struct Task {
        Kind kind = Kind::action;
        std::function<void()> body;
        bool finished = false;
        bool dropped = false;
        std::exception_ptr failure;
    };

    void loop();
    void execute(Task &task);
    void finish(const std::shared_ptr<Task> &task, bool dropped);
    /* The first queued task that may run now (any, or reads only). */
    std::shared_ptr<Task> take(bool readsOnly);

    std::mutex mutex_;
    std::condition_variable wakeUp_;   /* the thread: a task, a stop, a wake */
    std::condition_variable finished_; /* callers: a task finished */
    std::deque<std::shared_ptr<Task>> queue_;
    bool refusing_ = false;
    bool ending_ = false;
    std::function<void()> last_;
    std::thread thread_;
};

} // namespace corvane::server

#endif
