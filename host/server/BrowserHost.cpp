/*
 * BrowserHost.cpp - the host's life, and routing a request to its handler.
 */
#include "BrowserHost.h"

#include <exception>

#include <fmt/format.h>

#include "AddOns.h"
#include "DataModel.h"
#include "Gui.h"
#include "HostShutdown.h"
#include "StoredLoad.h"
#include "Token.h"

namespace corvane::server {

namespace {
constexpr std::string_view datasetsPrefix = "/api/datasets/";
}

Response stoppingResponse()
{
    return errorResponse(503, "corvane is stopping");
}

BrowserHost::BrowserHost(HostOptions options)
    : options_(std::move(options)),
      guard_(options_.token.empty() ? randomToken() : options_.token, options_.port),
      pages_(options_.webFolder),
      hub_(std::make_shared<EventHub>()),
      boxes_(std::make_shared<BrowserUi>(
          thread_, BrowserUi::Hooks{[this] { publisher_.publish(); },
                                    [this](const std::string &url) { hub_->sendHelp(url); },
                                    [this](const host::UiEvent &event) { noteBox(event); }})),
      publisher_(*hub_, *boxes_),
      menu_(options_.dataFile)
{
    /* The host's boxes go to the page from now on, and the page has a
       state to show before the add-on is loaded. */
    thread_.run(UiThread::Kind::action, [this] {
        previousUi_ = host::setUserInterface(boxes_);
        publisher_.listen();
        publisher_.publish();
    });
}

BrowserHost::~BrowserHost()
{
    stopServing();
    finish();
}

host::Expected<void> BrowserHost::start()
{
    host::Expected<void> loaded = host::unexpected("corvane is stopping");
    onUiThread(UiThread::Kind::action, [&] {
        std::string path = options_.addOnPath.empty() ? host::defaultAddOnPath()
                                                      : options_.addOnPath;
        loaded = host::loadAddOn(path);
    });
    return loaded;
}

void BrowserHost::stopServing()
{
    serving_ = false;
    boxes_->stop();
    thread_.refuseTasks();
    hub_->close();
}

void BrowserHost::finish()
{
    if (finished_)
        return;
    finished_ = true;
    stopServing();
    thread_.stop([this] {
        publisher_.stopListening();
        host::shutDown();
        host::clearDataSets();
        host::setUserInterface(std::move(previousUi_));
    });
}

std::string BrowserHost::url() const
{
    return fmt::format("http://127.0.0.1:{}/?token={}", options_.port, guard_.token());
}

bool BrowserHost::onUiThread(UiThread::Kind kind, const std::function<void()> &task)
{
    return thread_.run(kind, [&] {
        std::size_t setsBefore = host::finishedDataSets().size();
        task();
        if (kind == UiThread::Kind::action)
            keepStoppedLines(setsBefore);
        publisher_.publish();
    });
}

void BrowserHost::noteBox(const host::UiEvent &event)
{
    if (auto line = inspect::stoppedLine(event))
        stoppedPending_.insert(*line);
    if (options_.transcript)
        options_.transcript(event);
}

void BrowserHost::keepStoppedLines(std::size_t setsBefore)
{
    std::size_t sets = host::finishedDataSets().size();
    if (sets > setsBefore)
        stoppedBySet_[sets - 1] = std::move(stoppedPending_);
    stoppedPending_.clear();
}

Response BrowserHost::handle(const Request &request)
{
    Response response;
    try {
        response = route(request);
    } catch (const std::exception &failure) {
        response = errorResponse(500, failure.what());
    }
    response.headers.emplace_back("X-Content-Type-Options", "nosniff");
    response.headers.emplace_back("X-Frame-Options", "DENY");
    response.headers.emplace_back("Referrer-Policy", "no-referrer");
    if (request.path.starts_with("/api/"))
        response.headers.emplace_back("Cache-Control", "no-store");
    return response;
}

Response BrowserHost::route(const Request &request)
{
    if (auto refused = guard_.refuse(request))
        return *refused;
    if (request.body.size() > maxBodySize)
        return errorResponse(413, "the request body is larger than 64 KiB");
    if (auto landing = guard_.landing(request))
        return *landing;
    if (!serving_)
        return stoppingResponse();

    const std::string &path = request.path;
    bool get = request.method == "GET" || request.method == "HEAD";
    bool post = request.method == "POST";
    auto wrongMethod = [&](const char *allowed) {
        Response response = errorResponse(405, fmt::format("{} takes {} only", path, allowed));
        response.headers.emplace_back("Allow", allowed);
        return response;
    };

    if (path == "/api/state" || path == "/api/events" || path == "/api/files" ||
        path.starts_with(datasetsPrefix)) {
        if (!get)
            return wrongMethod("GET");
        if (path == "/api/state")
            return state();
        if (path == "/api/events")
            return events();
        if (path == "/api/files")
            return files(request);
        return dataSet(request, std::string_view(path).substr(datasetsPrefix.size()));
    }
    if (path == "/api/action" || path == "/api/box" || path == "/api/progress/cancel" ||
        path == "/api/layout") {
        if (!post)
            return wrongMethod("POST");
        if (path == "/api/action")
            return action(request);
        if (path == "/api/box")
            return answerBox(request);
        if (path == "/api/progress/cancel")
            return cancelProgress();
        return layout(request);
    }
    if (get)
        if (auto page = pages_.serve(path))
            return *page;
    return errorResponse(404, fmt::format("no such page: {}", path));
}

} // namespace corvane::server
