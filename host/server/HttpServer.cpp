/*
 * HttpServer.cpp - the socket side, with cpp-httplib.
 */
#include "HttpServer.h"

#include <httplib.h>

#include <sys/socket.h>

#include <cerrno>
#include <cstring>

#include <fmt/format.h>

namespace corvane::server {

namespace {

/* Threads answering requests: each open event stream holds one, and so
   does each action waiting for the user's answer to a box. */
constexpr std::size_t serverThreads = 48;
/* What cpp-httplib reads at most; the request function refuses bodies
   above 64 KiB itself, with a JSON error. */
constexpr std::size_t payloadLimit = 1024 * 1024;

Request fromHttplib(const httplib::Request &in)
{
    Request out;
    out.method = in.method;
    out.path = in.path;
    for (const auto &[name, value] : in.params)
        out.query.emplace_back(name, value);
    for (const auto &[name, value] : in.headers)
        out.headers.emplace_back(name, value);
    out.body = in.body;
    return out;
}

void toHttplib(Response response, httplib::Response &out)
{
    out.status = response.status;
    std::string contentType = "text/plain";
    for (auto &[name, value] : response.headers) {
        if (sameHeaderName(name, "Content-Type"))
            contentType = value;
        else
            out.set_header(name, value);
    }
    if (!response.events) {
        out.set_content(std::move(response.body), contentType);
        return;
    }
    out.set_chunked_content_provider(
        contentType, [events = response.events](std::size_t, httplib::DataSink &sink) {
            std::optional<std::string> chunk = events->next();
            if (!chunk) {
                sink.done(); /* the stream ended: the response ends too */
                return true;
            }
            /* false: the tab has gone, and the connection closes */
            return sink.is_writable() && sink.write(chunk->data(), chunk->size());
        });
}

} // namespace

HttpServer::HttpServer(std::unique_ptr<httplib::Server> server, int port)
    : server_(std::move(server)), port_(port)
{
}

HttpServer::~HttpServer()
{
    stop();
}

host::Expected<std::unique_ptr<HttpServer>> HttpServer::bind(int port)
{
    auto server = std::make_unique<httplib::Server>();
    /* cpp-httplib takes the pool it is given by pointer and deletes it. */
    server->new_task_queue = [] { return new httplib::ThreadPool(serverThreads); };
    server->set_payload_max_length(payloadLimit);
    /* The port is ours alone: no SO_REUSEPORT (cpp-httplib's default), which
       would let another program listen on it too and take requests. */
    server->set_socket_options([](int socket) {
        int yes = 1;
        ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    });
    /* Idle connections close soon, so that stopping does not wait on them. */
    server->set_keep_alive_timeout(1);
    int bound = port;
    if (port == 0) {
        bound = server->bind_to_any_port("127.0.0.1");
    } else if (!server->bind_to_port("127.0.0.1", port)) {
        bound = -1;
    }
    if (bound < 0)
        return host::unexpected(
            fmt::format("cannot listen on 127.0.0.1:{}: {}", port, std::strerror(errno)));
    return std::unique_ptr<HttpServer>(new HttpServer(std::move(server), bound));
}

void HttpServer::serve(Handler handler, std::function<void()> failed)
{
    auto each = [handler](const httplib::Request &in, httplib::Response &out) {
        toHttplib(handler(fromHttplib(in)), out);
    };
    server_->Get(".*", each);
    server_->Post(".*", each);
    server_->Put(".*", each);
    server_->Patch(".*", each);
    server_->Delete(".*", each);
    server_->Options(".*", each);
    /* Errors cpp-httplib answers itself (a body over its limit, a request
       it cannot parse) get a JSON body like the others. */
    server_->set_error_handler(httplib::Server::HandlerWithResponse(
        [](const httplib::Request &, httplib::Response &out) {
        if (!out.body.empty())
            return httplib::Server::HandlerResponse::Unhandled;
        const char *what = out.status == 413 ? "the request body is too large"
                           : out.status == 404 ? "no such page"
                                               : "the request could not be read";
        Response error = errorResponse(out.status, what);
        out.set_content(error.body, "application/json");
        return httplib::Server::HandlerResponse::Handled;
    }));
    listener_ = std::thread([this, failed = std::move(failed)] {
        bool stopped = server_->listen_after_bind();
        ended_ = true;
        if (!stopped && failed)
            failed();
    });
}

void HttpServer::stop()
{
    if (!listener_.joinable())
        return;
    /* A stop before the listener is running would be missed. */
    while (!server_->is_running() && !ended_)
        std::this_thread::yield();
    server_->stop();
    if (listener_.joinable())
        listener_.join();
}

} // namespace corvane::server
