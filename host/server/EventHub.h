/*
 * EventHub.h - the published state and the server-sent event streams that
 * follow it. The user-interface thread publishes the state's JSON text
 * under a growing version and sends help events; each stream (every tab
 * has one) gets the state at once, then each newer state, and every help
 * event sent after it opened, in order. Closing the hub ends every stream.
 */
#ifndef CORVANE_SERVER_EVENTHUB_H
#define CORVANE_SERVER_EVENTHUB_H

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "HttpMessage.h"

namespace corvane::server {

class EventHub : public std::enable_shared_from_this<EventHub> {
public:
    /* heartbeat: how long a stream stays silent before it sends a comment
       line (which also finds out that a tab has gone). */
    explicit EventHub(std::chrono::milliseconds heartbeat = std::chrono::seconds(15));

    /* The newest state: its version and JSON text. */
    std::pair<std::uint64_t, std::string> state() const;
    /* Publishes a state whose JSON was made with version nextVersion(). */
    void publish(std::uint64_t version, std::string json);
    std::uint64_t nextVersion() const;
    /* Sends {"page": url} as a help event to every open stream. */
    void sendHelp(const std::string &url);
    /* Ends every stream; streams opened later end at once. */
    void close();

    /* A new stream. */
    std::shared_ptr<EventSource> open();

private:
    class Stream;

    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::chrono::milliseconds heartbeat_;
    std::uint64_t version_ = 0;
    std::string state_ = "{}";
    /* Help events by number, the oldest dropped past a few. */
    std::deque<std::pair<std::uint64_t, std::string>> helps_;
    std::uint64_t lastHelp_ = 0;
    bool closed_ = false;
};

} // namespace corvane::server

#endif
