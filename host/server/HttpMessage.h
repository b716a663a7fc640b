/*
 * HttpMessage.h - requests and responses of the browser front end's HTTP
 * interface as plain values, independent of sockets: the request function
 * maps one to the other, and only the server glue meets the network.
 */
#ifndef CORVANE_SERVER_HTTPMESSAGE_H
#define CORVANE_SERVER_HTTPMESSAGE_H

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

namespace corvane::server {

using Pairs = std::vector<std::pair<std::string, std::string>>;

struct Request {
    std::string method = "GET";
    std::string path = "/";
    Pairs query;   /* decoded, in the order given */
    Pairs headers; /* names as sent; looked up with case ignored */
    std::string body;

    /* The first header of that name (case ignored), or nothing. */
    std::optional<std::string> header(std::string_view name) const;
    /* Every header of that name, in order. */
    std::vector<std::string> headersNamed(std::string_view name) const;
    /* The first query value of that name, or nothing. */
    std::optional<std::string> param(std::string_view name) const;
};

/* A server-sent event stream: the chunks of text to send, one at a time. */
class EventSource {
public:
    virtual ~EventSource() = default;
    /* Waits for the next chunk; nothing when the stream has ended. */
    virtual std::optional<std::string> next() = 0;
};

struct Response {
    int status = 200;
    Pairs headers;
    std::string body;
    /* When set, the body is this stream rather than body. */
    std::shared_ptr<EventSource> events;

    std::optional<std::string> header(std::string_view name) const;
};

/* A response with a body of that content type. */
Response textResponse(int status, std::string body, std::string contentType);
/* A JSON body (invalid UTF-8 replaced). */
Response jsonResponse(int status, const nlohmann::ordered_json &body);
/* {"error": text} with the status. */
Response errorResponse(int status, std::string_view text);
/* {"ok": true}. */
Response okResponse();

/* ASCII case-insensitive equality of header names. */
bool sameHeaderName(std::string_view a, std::string_view b);

} // namespace corvane::server

#endif
