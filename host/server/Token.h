/*
 * Token.h - the secret that lets a browser tab in: 32 hex characters from
 * the system's random source.
 */
#ifndef CORVANE_SERVER_TOKEN_H
#define CORVANE_SERVER_TOKEN_H

#include <string>

namespace corvane::server {

std::string randomToken();

} // namespace corvane::server

#endif
