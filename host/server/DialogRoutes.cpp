/*
 * DialogRoutes.cpp - the handlers of the state, its events, the user's
 * actions, box answers, the progress box's Cancel and the file chooser's
 * folders.
 */
#include <filesystem>
#include <system_error>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "BrowserHost.h"
#include "FolderListing.h"
#include "UserAction.h"

namespace corvane::server {

namespace fs = std::filesystem;
using nlohmann::json;

namespace {

/* Why a path the page sends may not be used as a file, or nothing: it must
   be absolute, and what is there already must be a plain file (never a
   device, which reading could hang on). */
std::optional<Response> refuseFilePath(const std::string &path)
{
    if (path.empty() || path.front() != '/')
        return errorResponse(400, fmt::format("\"{}\" is not an absolute path", path));
    std::error_code ec;
    fs::file_status status = fs::status(path, ec);
    switch (status.type()) {
    case fs::file_type::not_found:
    case fs::file_type::regular:
        return std::nullopt;
    case fs::file_type::directory:
        return errorResponse(403, fmt::format("{} is a folder", path));
    case fs::file_type::none:
    case fs::file_type::unknown:
        return errorResponse(403, fmt::format("{}: {}", path, ec.message()));
    default:
        return errorResponse(403, fmt::format("{} is a device", path));
    }
}

} // namespace

Response BrowserHost::state() const
{
    return textResponse(200, hub_->state().second, "application/json");
}

Response BrowserHost::events()
{
    Response response;
    response.headers = {{"Content-Type", "text/event-stream"}};
    response.events = hub_->open();
    return response;
}

Response BrowserHost::action(const Request &request)
{
    auto parsed = parseAction(request.body);
    if (!parsed)
        return errorResponse(400, parsed.error());
    if (boxes_->boxWaiting())
        return errorResponse(409, "a box is waiting for an answer");
    host::Expected<void> done;
    if (!onUiThread(UiThread::Kind::action, [&] { done = perform(*parsed, menu_); }))
        return stoppingResponse();
    if (!done)
        return errorResponse(409, done.error());
    return okResponse();
}

Response BrowserHost::answerBox(const Request &request)
{
    json body = json::parse(request.body, nullptr, false);
    if (!body.is_object() || !body.contains("id") || !body["id"].is_number_integer())
        return errorResponse(400, "the answer needs \"id\": the box's id");
    int id = body["id"].get<int>();
    BoxReply reply;
    if (auto answer = body.find("answer"); answer != body.end() && answer->is_boolean()) {
        reply = answer->get<bool>();
    } else if (auto path = body.find("path"); path != body.end() && path->is_null()) {
        reply = std::optional<std::string>();
    } else if (path != body.end() && path->is_string()) {
        if (auto refused = refuseFilePath(path->get<std::string>()))
            return *refused;
        reply = std::optional<std::string>(path->get<std::string>());
    } else {
        return errorResponse(400, "the answer needs \"answer\": true or false, or \"path\": a "
                                  "path or null");
    }
    switch (boxes_->answer(id, reply)) {
    case ReplyResult::taken:
        return okResponse();
    case ReplyResult::notWaiting:
        return errorResponse(409, fmt::format("no box {} is waiting for an answer", id));
    case ReplyResult::wrongKind:
        break;
    }
    if (std::holds_alternative<bool>(reply))
        return errorResponse(
            400, fmt::format("box {} is a file chooser: answer it with \"path\"", id));
    return errorResponse(400, fmt::format("box {} takes \"answer\", not a path", id));
}

Response BrowserHost::cancelProgress()
{
    if (!boxes_->cancelProgress())
        return errorResponse(409, "no progress box with a Cancel button is up");
    return okResponse();
}

Response BrowserHost::files(const Request &request) const
{
    std::string folder = request.param("dir").value_or("");
    if (folder.empty())
        folder = startingFolder(boxes_->proposedName());
    FolderListing listing = listFolder(folder, request.param("filter").value_or(""));
    if (listing.refusal)
        return errorResponse(listing.refusal->status, listing.refusal->reason);
    return jsonResponse(200, listing.json);
}

} // namespace corvane::server
