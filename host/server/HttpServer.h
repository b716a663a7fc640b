/*
 * HttpServer.h - cpp-httplib glued to the request function: a server bound
 * to 127.0.0.1 that turns each HTTP request into a Request, and the
 * Response (or event stream) back into HTTP, on a pool of threads large
 * enough for several event streams and actions waiting for the user.
 */
#ifndef CORVANE_SERVER_HTTPSERVER_H
#define CORVANE_SERVER_HTTPSERVER_H

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

#include "Expected.h"
#include "HttpMessage.h"

namespace httplib {
class Server;
}

namespace corvane::server {

class HttpServer {
public:
    using Handler = std::function<Response(const Request &)>;

    /* A server bound to 127.0.0.1:port (0: a free port); the error says why
       it could not bind. */
    static host::Expected<std::unique_ptr<HttpServer>> bind(int port);
    ~HttpServer();
    HttpServer(const HttpServer &) = delete;
    HttpServer &operator=(const HttpServer &) = delete;

    int port() const { return port_; }
    /* Starts answering requests with handler, on threads of its own;
       failed, when given, is called if the server stops by itself. */
    void serve(Handler handler, std::function<void()> failed = {});
    /* Stops listening and waits for the requests being answered. */
    void stop();

private:
    HttpServer(std::unique_ptr<httplib::Server> server, int port);

    std::unique_ptr<httplib::Server> server_;
    int port_;
    std::atomic<bool> ended_ = false; /* the listener has returned */
    std::thread listener_;
};

} // namespace corvane::server

#endif
