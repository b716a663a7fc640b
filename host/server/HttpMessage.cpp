/*
 * HttpMessage.cpp - lookups in requests and responses, and the responses
 * every handler makes.
 */
#include "HttpMessage.h"

#include <algorithm>
#include <cctype>

namespace corvane::server {

namespace {

std::optional<std::string> firstNamed(const Pairs &pairs, std::string_view name, bool anyCase)
{
    for (const auto &[key, value] : pairs)
        if (anyCase ? sameHeaderName(key, name) : key == name)
            return value;
    return std::nullopt;
}

} // namespace

bool sameHeaderName(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return std::tolower(static_cast<unsigned char>(x)) ==
               std::tolower(static_cast<unsigned char>(y));
    });
}

std::optional<std::string> Request::header(std::string_view name) const
{
    return firstNamed(headers, name, true);
}

std::vector<std::string> Request::headersNamed(std::string_view name) const
{
    std::vector<std::string> values;
    for (const auto &[key, value] : headers)
        if (sameHeaderName(key, name))
            values.push_back(value);
    return values;
}

std::optional<std::string> Request::param(std::string_view name) const
{
    return firstNamed(query, name, false);
}

std::optional<std::string> Response::header(std::string_view name) const
{
    return firstNamed(headers, name, true);
}

Response textResponse(int status, std::string body, std::string contentType)
{
    Response response;
    response.status = status;
    response.headers.emplace_back("Content-Type", std::move(contentType));
    response.body = std::move(body);
    return response;
}

Response jsonResponse(int status, const nlohmann::ordered_json &body)
{
    return textResponse(status,
                        body.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace),
                        "application/json");
}

Response errorResponse(int status, std::string_view text)
{
    return jsonResponse(status, {{"error", text}});
}

Response okResponse()
{
    return jsonResponse(200, {{"ok", true}});
}

} // namespace corvane::server
