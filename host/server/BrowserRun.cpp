/*
 * BrowserRun.cpp - one run of the browser front end, from the parsed
 * command to the exit status.
 */
#include "BrowserRun.h"

#include <atomic>

#include <fmt/format.h>

#include "BrowserHost.h"
#include "BrowserLaunch.h"
#include "HttpServer.h"
#include "SignalStop.h"
#include "TranscriptFile.h"

namespace corvane::server {

int runBrowser(const cli::Command &cmd, const cli::Io &io)
{
    /* Before any thread starts, so that every thread leaves the signals to
       the one that waits for them. */
    SignalStop signals;
    auto transcript = cli::TranscriptFile::open(cmd.transcript);
    if (!transcript) {
        std::fputs(cli::usageMessage(transcript.error()).c_str(), io.err);
        return cli::exitUsage;
    }
    auto server = HttpServer::bind(cmd.port);
    if (!server) {
        fmt::print(io.err, "corvane: {}\n", server.error());
        return cli::exitFailure;
    }

    HostOptions options;
    options.addOnPath = cmd.addOnPath;
    if (!cmd.dataFile.empty())
        options.dataFile = cmd.dataFile;
    options.port = (*server)->port();
    options.webFolder = PageFiles::besideExecutable();
    options.transcript = transcript->writer();
    BrowserHost host(std::move(options));
    signals.whenStopped([&host] { host.stopServing(); });
    std::atomic<bool> serverFailed = false;
    (*server)->serve([&host](const Request &request) { return host.handle(request); },
                     [&] {
                         serverFailed = true;
                         signals.request();
                     });

    fmt::print(io.out, "Open {}\n", host.url());
    std::fflush(io.out);
    if (!cmd.noOpen)
        openInBrowser(host.url(), io.err);

    int status = cli::exitSuccess;
    if (auto started = host.start(); !started && !signals.requested()) {
        fmt::print(io.err, "corvane: {}\n", started.error());
        status = cli::exitFailure;
    } else {
        signals.wait();
    }
    if (serverFailed) {
        fmt::print(io.err, "corvane: the server on 127.0.0.1:{} stopped answering\n",
                   (*server)->port());
        status = cli::exitFailure;
    }
    signals.forgetHook();
    host.stopServing();
    (*server)->stop();
    host.finish();
    return status;
}

} // namespace corvane::server
