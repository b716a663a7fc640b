/*
 * Guard.h - the checks every request passes before it is handled: the
 * Host header names this server, an Origin header (when sent) is this
 * server, and the token is in the cookie or the query. A browser tab gets
 * the cookie from the URL printed at start: GET /?token=TOKEN sets it and
 * redirects to / (so that the token leaves the address bar).
 */
#ifndef CORVANE_SERVER_GUARD_H
#define CORVANE_SERVER_GUARD_H

#include <optional>
#include <string>

#include "HttpMessage.h"

namespace corvane::server {

inline constexpr const char *tokenCookie = "corvane_token";

class Guard {
public:
    Guard(std::string token, int port);

    /* The refusal of a request that does not pass (403), or nothing. */
    std::optional<Response> refuse(const Request &request) const;
    /* For a request that passed: the redirect that sets the cookie when it
       is the token's landing (GET / with the token query), or nothing. */
    std::optional<Response> landing(const Request &request) const;

    const std::string &token() const { return token_; }

private:
    bool hostAllowed(const std::string &host) const;
    bool originAllowed(const std::string &origin) const;
    bool carriesToken(const Request &request) const;

    std::string token_;
    int port_;
};

} // namespace corvane::server

#endif
