/*
 * EventHub.cpp - the state's versions and the event streams.
 */
#include "EventHub.h"

#include <nlohmann/json.hpp>

namespace corvane::server {

namespace {
constexpr std::size_t helpsKept = 32;
}

class EventHub::Stream : public EventSource {
public:
    Stream(std::shared_ptr<EventHub> hub, std::uint64_t helpsSeen)
        : hub_(std::move(hub)), helpsSeen_(helpsSeen)
    {
    }

    std::optional<std::string> next() override
    {
        EventHub &hub = *hub_;
        std::unique_lock lock(hub.mutex_);
        bool woken = hub.changed_.wait_for(lock, hub.heartbeat_, [&] {
            return hub.closed_ || hub.lastHelp_ > helpsSeen_ || hub.version_ > stateSeen_;
        });
        if (hub.closed_)
            return std::nullopt;
        if (!woken)
            return ": keep-alive\n\n";
        for (const auto &[number, url] : hub.helps_) {
            if (number > helpsSeen_) {
                helpsSeen_ = number;
                nlohmann::json data = {{"page", url}};
                return "event: help\ndata: " +
                       data.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) +
                       "\n\n";
            }
        }
        helpsSeen_ = hub.lastHelp_;
        stateSeen_ = hub.version_;
        return "event: state\ndata: " + hub.state_ + "\n\n";
    }

private:
    std::shared_ptr<EventHub> hub_;
    std::uint64_t helpsSeen_;
    std::uint64_t stateSeen_ = 0; /* the first call sends the state at once */
};

EventHub::EventHub(std::chrono::milliseconds heartbeat) : heartbeat_(heartbeat) {}

std::pair<std::uint64_t, std::string> EventHub::state() const
{
    std::lock_guard lock(mutex_);
    return {version_, state_};
}

std::uint64_t EventHub::nextVersion() const
{
    std::lock_guard lock(mutex_);
    return version_ + 1;
}

void EventHub::publish(std::uint64_t version, std::string json)
{
    std::lock_guard lock(mutex_);
    version_ = version;
    state_ = std::move(json);
    changed_.notify_all();
}

void EventHub::sendHelp(const std::string &url)
{
    std::lock_guard lock(mutex_);
    helps_.emplace_back(++lastHelp_, url);
    if (helps_.size() > helpsKept)
        helps_.pop_front();
    changed_.notify_all();
}

void EventHub::close()
{
    std::lock_guard lock(mutex_);
    closed_ = true;
    changed_.notify_all();
}

std::shared_ptr<EventSource> EventHub::open()
{
    std::lock_guard lock(mutex_);
    return std::make_shared<Stream>(shared_from_this(), lastHelp_);
}

} // namespace corvane::server
