/*
 * UiThread.cpp - the task queue of the user-interface thread.
 */
#include "UiThread.h"

#include <algorithm>

namespace corvane::server {

UiThread::UiThread() : thread_([this] { loop(); }) {}

UiThread::~UiThread()
{
    stop();
}

bool UiThread::run(Kind kind, std::function<void()> body)
{
    auto task = std::make_shared<Task>();
    task->kind = kind;
    task->body = std::move(body);
    if (onThread()) {
        execute(*task);
    } else {
        std::unique_lock lock(mutex_);
        if (refusing_)
            return false;
        queue_.push_back(task);
        wakeUp_.notify_all();
        finished_.wait(lock, [&] { return task->finished; });
    }
    if (task->failure)
        std::rethrow_exception(task->failure);
    return !task->dropped;
}

void UiThread::execute(Task &task)
{
    try {
        task.body();
    } catch (...) {
        task.failure = std::current_exception();
    }
}

void UiThread::finish(const std::shared_ptr<Task> &task, bool dropped)
{
    std::lock_guard lock(mutex_);
    task->finished = true;
    task->dropped = dropped;
    finished_.notify_all();
}

std::shared_ptr<UiThread::Task> UiThread::take(bool readsOnly)
{
    auto found = std::find_if(queue_.begin(), queue_.end(), [&](const auto &task) {
        return !readsOnly || task->kind == Kind::read;
    });
    if (found == queue_.end())
        return nullptr;
    std::shared_ptr<Task> task = *found;
    queue_.erase(found);
    return task;
}

void UiThread::loop()
{
    std::unique_lock lock(mutex_);
    while (true) {
        wakeUp_.wait(lock, [&] { return ending_ || !queue_.empty(); });
        if (ending_)
            break;
        std::shared_ptr<Task> task = take(false);
        lock.unlock();
        execute(*task);
        finish(task, false);
        lock.lock();
    }
    std::function<void()> last = std::move(last_);
    lock.unlock();
    if (last)
        last();
}

void UiThread::waitModal(const std::function<bool()> &done)
{
    std::unique_lock lock(mutex_);
    while (true) {
        std::shared_ptr<Task> task;
        wakeUp_.wait(lock, [&] {
            return refusing_ || done() || (task = take(true)) != nullptr;
        });
        if (!task)
            return;
        lock.unlock();
        execute(*task);
        finish(task, false);
        lock.lock();
    }
}

void UiThread::wake()
{
    std::lock_guard lock(mutex_);
    wakeUp_.notify_all();
}

void UiThread::refuseTasks()
{
    std::deque<std::shared_ptr<Task>> dropped;
    {
        std::lock_guard lock(mutex_);
        refusing_ = true;
        dropped.swap(queue_);
        wakeUp_.notify_all();
    }
    for (const auto &task : dropped)
        finish(task, true);
}

void UiThread::stop(const std::function<void()> &last)
{
    refuseTasks();
    {
        std::lock_guard lock(mutex_);
        if (ending_)
            return;
        ending_ = true;
        last_ = last;
        wakeUp_.notify_all();
    }
    if (thread_.joinable())
        thread_.join();
}

} // namespace corvane::server
