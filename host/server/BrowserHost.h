/*
 * BrowserHost.h - the host behind the browser front end, without sockets:
 * the user-interface thread that runs the add-on, the boxes the page
 * answers, the published state, and the request function that serves the
 * HTTP interface (host/web/API.md). The server glue calls handle() from
 * any number of threads; tests call it directly.
 *
 * Life: construct (the thread starts), start() (the add-on loads), any
 * number of handle() calls, stopServing() (waiting boxes are answered as
 * cancelled or No, event streams end, new requests are refused), then
 * finish() (the dialogs still up close with their Cancel, quietly, the
 * add-on quits, the thread ends). The destructor does what was not
 * done.
 */
#ifndef CORVANE_SERVER_BROWSERHOST_H
#define CORVANE_SERVER_BROWSERHOST_H

#include <atomic>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "BrowserUi.h"
#include "EventHub.h"
#include "Expected.h"
#include "Guard.h"
#include "HttpMessage.h"
#include "LoaderMenu.h"
#include "PageFiles.h"
#include "StatePublisher.h"
#include "Transcript.h"
#include "UiThread.h"

namespace corvane::server {

/* Request bodies above this are refused with 413. */
inline constexpr std::size_t maxBodySize = 64 * 1024;

struct HostOptions {
    std::string addOnPath;               /* empty: the add-on beside the host library */
    std::optional<std::string> dataFile; /* chosen in the loader's dialog the first time */
    int port = 0;                        /* where the server listens */
    std::filesystem::path webFolder;     /* the page's files, with help/ */
    std::string token;                   /* empty: a random one */
    std::function<void(const host::UiEvent &)> transcript; /* every box shown; may be empty */
};

class BrowserHost {
public:
    explicit BrowserHost(HostOptions options);
    ~BrowserHost();
    BrowserHost(const BrowserHost &) = delete;
    BrowserHost &operator=(const BrowserHost &) = delete;

    /* Loads the add-on on the user-interface thread; the error says why it
       could not be loaded. */
    host::Expected<void> start();
    /* The answer to one request; never throws. */
    Response handle(const Request &request);
    void stopServing();
    void finish();

    const std::string &token() const { return guard_.token(); }
    /* http://127.0.0.1:PORT/?token=TOKEN */
    std::string url() const;

private:
    Response route(const Request &request);
    /* Runs the task on the user-interface thread and publishes the state
       after it; false when the host is stopping. */
    bool onUiThread(UiThread::Kind kind, const std::function<void()> &task);

    Response state() const;
    Response events();
    Response action(const Request &request);
    Response answerBox(const Request &request);
    Response cancelProgress();
    Response files(const Request &request) const;
    Response dataSet(const Request &request, std::string_view rest);
    Response layout(const Request &request);
    Response checkDataSet(std::size_t index);
    /* Records what check needs of the boxes of a load (lines where the
       user stopped taking malformed values), then passes the event on to
       the transcript. */
    void noteBox(const host::UiEvent &event);
    /* After an action: the stopped lines go to the data set it made. */
    void keepStoppedLines(std::size_t setsBefore);

    HostOptions options_;
    Guard guard_;
    PageFiles pages_;
    std::shared_ptr<EventHub> hub_;
    UiThread thread_;
    std::shared_ptr<BrowserUi> boxes_;
    StatePublisher publisher_;
    LoaderMenu menu_;
    /* The backend the host had before: put back at the end. */
    std::shared_ptr<host::UserInterface> previousUi_;
    /* Lines stopped in the load under way, and those of each data set the
       run made, by index; touched on the user-interface thread only. */
    std::set<int> stoppedPending_;
    std::map<std::size_t, std::set<int>> stoppedBySet_;
    std::atomic<bool> serving_ = true;
    bool finished_ = false;
};

/* The response a request gets while the host stops. */
Response stoppingResponse();

} // namespace corvane::server

#endif
