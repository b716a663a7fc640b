/*
 * Token.cpp - the random token. std::random_device reads the kernel's
 * random source (getrandom or /dev/urandom) on Linux.
 */
#include "Token.h"

#include <random>

#include <fmt/format.h>

namespace corvane::server {

std::string randomToken()
{
    std::random_device source("/dev/urandom");
    std::string token;
    for (int word = 0; word < 4; ++word)
        token += fmt::format("{:08x}", static_cast<unsigned>(source()));
    return token;
}

} // namespace corvane::server
