/*
 * Guard.cpp - Host, Origin and token checks.
 */
#include "Guard.h"

#include <fmt/format.h>

namespace corvane::server {

namespace {

/* Equality that takes as long whatever the first difference is, so that
   timing tells nothing about the token. */
bool sameSecret(std::string_view given, std::string_view secret)
{
    if (given.size() != secret.size())
        return false;
    unsigned char difference = 0;
    for (std::size_t i = 0; i < secret.size(); ++i)
        difference |= static_cast<unsigned char>(given[i] ^ secret[i]);
    return difference == 0;
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
        text.remove_suffix(1);
    return text;
}

/* The values of the cookie of that name in a Cookie header
   ("a=1; corvane_token=abc"). */
std::vector<std::string_view> cookieValues(std::string_view header, std::string_view name)
{
    std::vector<std::string_view> values;
    while (!header.empty()) {
        std::size_t end = header.find(';');
        std::string_view pair = trimmed(header.substr(0, end));
        header = end == std::string_view::npos ? std::string_view() : header.substr(end + 1);
        std::size_t equals = pair.find('=');
        if (equals != std::string_view::npos && trimmed(pair.substr(0, equals)) == name)
            values.push_back(trimmed(pair.substr(equals + 1)));
    }
    return values;
}

} // namespace

Guard::Guard(std::string token, int port) : token_(std::move(token)), port_(port) {}

bool Guard::hostAllowed(const std::string &host) const
{
    return host == fmt::format("127.0.0.1:{}", port_) || host == fmt::format("localhost:{}", port_);
}

bool Guard::originAllowed(const std::string &origin) const
{
    return origin == fmt::format("http://127.0.0.1:{}", port_) ||
           origin == fmt::format("http://localhost:{}", port_);
}

bool Guard::carriesToken(const Request &request) const
{
    if (auto query = request.param("token"); query && sameSecret(*query, token_))
        return true;
    for (const std::string &header : request.headersNamed("Cookie"))
        for (std::string_view value : cookieValues(header, tokenCookie))
            if (sameSecret(value, token_))
                return true;
    return false;
}

std::optional<Response> Guard::refuse(const Request &request) const
{
    auto hosts = request.headersNamed("Host");
    if (hosts.size() != 1 || !hostAllowed(hosts.front()))
        return errorResponse(403, "the Host header does not name this server");
    auto origins = request.headersNamed("Origin");
    if (origins.size() > 1 || (origins.size() == 1 && !originAllowed(origins.front())))
        return errorResponse(403, "requests from other origins are refused");
    if (!carriesToken(request))
        return errorResponse(403, "the token is missing or wrong: open the URL corvane printed");
    return std::nullopt;
}

std::optional<Response> Guard::landing(const Request &request) const
{
    if (request.method != "GET" || request.path != "/" || !request.param("token"))
        return std::nullopt;
    Response response;
    response.status = 303;
    response.headers = {
        {"Location", "/"},
        {"Set-Cookie",
         fmt::format("{}={}; HttpOnly; SameSite=Strict; Path=/", tokenCookie, token_)}};
    return response;
}

} // namespace corvane::server
