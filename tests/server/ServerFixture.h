// A browser host on the small server test add-on (or another), driven through its
// request function as the page drives it: requests with the Host header and the
// token cookie, the state as JSON, and the event stream read event by event.
#ifndef ORDALIS_TESTS_SERVERFIXTURE_H
#define ORDALIS_TESTS_SERVERFIXTURE_H

#include <functional>
#include <future>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "BrowserHost.h"
#include "CorvaneRun.h"

namespace servertest {

using corvane::server::Request;
using corvane::server::Response;
using json = nlohmann::ordered_json;

inline const std::string serverAddOn = ORDALIS_BIN_DIR "/libserver_addon.so";
inline const std::string token = "0123456789abcdef0123456789abcdef";
inline constexpr int port = 8123;

/* A request as the page sends it: right Host, the token cookie; a query
   after '?' in target ("a=1&b=2", nothing encoded). */
inline Request pageRequest(std::string method, const std::string &target, std::string body = "")
{
    Request request;
    request.method = std::move(method);
    std::size_t mark = target.find('?');
    request.path = target.substr(0, mark);
    for (std::size_t at = mark; at != std::string::npos;) {
        std::size_t end = target.find('&', at + 1);
        std::string pair = target.substr(at + 1, end == std::string::npos ? end : end - at - 1);
        std::size_t equals = pair.find('=');
        request.query.emplace_back(pair.substr(0, equals),
                                   equals == std::string::npos ? "" : pair.substr(equals + 1));
        at = end;
    }
    request.headers = {{"Host", "127.0.0.1:8123"}, {"Cookie", "corvane_token=" + token}};
    request.body = std::move(body);
    return request;
}

/* One event of a stream: its name ("state", "help") and its data as JSON. */
struct Event {
    std::string name;
    json data;
};

/* The next event of the stream, keep-alive comments skipped; name "end" when
   the stream has ended. */
inline Event nextEvent(corvane::server::EventSource &stream)
{
    while (auto chunk = stream.next()) {
        if (chunk->starts_with(":"))
            continue;
        std::size_t line = chunk->find('\n');
        std::string name = chunk->substr(7, line - 7); /* after "event: " */
        std::string data = chunk->substr(line + 7);    /* after "\ndata: " */
        return {name, json::parse(data)};
    }
    return {"end", nullptr};
}

class ServerTest : public ::testing::Test {
protected:
    /* Starts a host on the add-on; data file as the command line's DATAFILE. */
    void startHost(const std::string &addOn = serverAddOn,
                   std::optional<std::string> dataFile = std::nullopt)
    {
        corvane::server::HostOptions options;
        options.addOnPath = addOn;
        options.dataFile = std::move(dataFile);
        options.port = port;
        options.webFolder = webFolder_;
        options.token = token;
        options.transcript = [this](const corvane::host::UiEvent &event) {
            transcript_.push_back(corvane::host::toJsonLine(event));
        };
        host_ = std::make_unique<corvane::server::BrowserHost>(std::move(options));
        auto started = host_->start();
        ASSERT_TRUE(started) << started.error();
    }

    void TearDown() override { host_.reset(); }

    corvane::server::BrowserHost &host() { return *host_; }
    Response handle(const Request &request) { return host_->handle(request); }
    Response get(const std::string &path) { return handle(pageRequest("GET", path)); }
    Response post(const std::string &path, const json &body)
    {
        return handle(pageRequest("POST", path, body.dump()));
    }
    /* POST /api/action; the response's status and JSON body. */
    std::pair<int, json> act(const json &action)
    {
        Response response = post("/api/action", action);
        return {response.status, json::parse(response.body)};
    }
    json state() { return json::parse(get("/api/state").body); }
    /* Presses the button on another thread (its callback may wait for the
       page); the future holds the action's answer. */
    std::future<std::pair<int, json>> pressLater(int button)
    {
        return actLater({{"type", "press"}, {"control", button}});
    }
    /* An action that waits for boxes, sent from another thread. */
    std::future<std::pair<int, json>> actLater(json action)
    {
        return std::async(std::launch::async,
                          [this, action = std::move(action)] { return act(action); });
    }

    /* The top dialog's control with that caption, else with that label. */
    int control(const std::string &name)
    {
        json dialogs = state()["dialogs"];
        for (const char *key : {"caption", "label"})
            for (const json &each : dialogs.back()["controls"])
                if (each[key] == name)
                    return each["id"].get<int>();
        ADD_FAILURE() << "no control " << name;
        return -1;
    }
    /* The text of the top dialog's control with that caption. */
    std::string textOf(const std::string &caption)
    {
        json now = state();
        for (const json &each : now["dialogs"].back()["controls"])
            if (each["caption"] == caption)
                return each["text"].get<std::string>();
        return "<none>";
    }
    int topDialog() { return state()["dialogs"].back()["id"].get<int>(); }

    /* Opens the add-on's dialog. */
    void openDialog(const std::string &loader = "Server Test Loader")
    {
        ASSERT_EQ(act({{"type", "openLoader"}, {"loader", loader}}).first, 200);
    }
    /* Loads a data set through the dialog: values typed, OK pressed. */
    void loadValues(const std::string &values)
    {
        openDialog();
        ASSERT_EQ(act({{"type", "text"}, {"control", control("Values:")}, {"text", values}}).first,
                  200);
        ASSERT_EQ(act({{"type", "dialogButton"}, {"dialog", topDialog()}, {"button", "ok"}}).first,
                  200);
    }

    /* Reads the stream's state events until one satisfies holds. */
    static json awaitState(corvane::server::EventSource &stream,
                           const std::function<bool(const json &)> &holds)
    {
        while (true) {
            Event event = nextEvent(stream);
            if (event.name == "end")
                return nullptr;
            if (event.name == "state" && holds(event.data))
                return event.data;
        }
    }

    std::vector<std::string> transcript_;
    std::filesystem::path webFolder_ = ORDALIS_BIN_DIR "/web";

private:
    std::unique_ptr<corvane::server::BrowserHost> host_;
};

} // namespace servertest

#endif
