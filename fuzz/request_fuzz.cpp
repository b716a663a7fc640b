/*
 * request_fuzz.cpp - the browser front end's request function, without
 * sockets: the input is a request as text ("METHOD TARGET", header lines,
 * an empty line, the body). With the first byte odd the harness adds the
 * right token, Host and Origin, so that the fuzzer reaches what lies behind
 * the security checks. Requests that would act on the dialogs or write
 * files (actions, box answers, layouts) are left out: an action may wait
 * for a box nobody answers, and answers name files on this machine. Every
 * answer must have a status from 200 to 599, and an error of the interface
 * must be JSON.
 */
#include <cstdlib>
#include <memory>
#include <string>

#include <nlohmann/json.hpp>

#include "BrowserHost.h"
#include "FuzzHost.h"

namespace server = corvane::server;

namespace {

const std::string token = "0123456789abcdef0123456789abcdef";

/* The host of the whole run, made at the first input and finished at the
   process's exit (before the leak check). */
server::BrowserHost &browserHost()
{
    static std::unique_ptr<server::BrowserHost> made = [] {
        ::setenv("ORDALIS_DIR", "/tmp/ordalis_request_fuzz_library", 1);
        server::HostOptions options;
        options.port = 8123;
        options.token = token;
        options.webFolder = "/nonexistent/web";
        auto host = std::make_unique<server::BrowserHost>(options);
        if (!host->start())
            std::abort();
        return host;
    }();
    return *made;
}

/* "%41" and "+" decoded as a server decodes a query. */
std::string decoded(const std::string &text)
{
    std::string out;
    for (size_t i = 0; i < text.size(); i++) {
        if (text[i] == '%' && i + 2 < text.size()) {
            out += static_cast<char>(std::strtol(text.substr(i + 1, 2).c_str(), nullptr, 16));
            i += 2;
        } else {
            out += text[i] == '+' ? ' ' : text[i];
        }
    }
    return out;
}

server::Request parsed(const std::string &text, bool trusted)
{
    server::Request request;
    size_t lineEnd = text.find('\n');
    std::string first = text.substr(0, lineEnd);
    size_t blank = first.find(' ');
    request.method = first.substr(0, blank);
    std::string target = blank == std::string::npos ? "/" : first.substr(blank + 1);
    size_t question = target.find('?');
    request.path = target.substr(0, question);
    if (question != std::string::npos) {
        std::string query = target.substr(question + 1);
        for (size_t start = 0; start <= query.size();) {
            size_t amp = query.find('&', start);
            std::string pair = query.substr(start, amp - start);
            size_t eq = pair.find('=');
            request.query.emplace_back(decoded(pair.substr(0, eq)),
                                       eq == std::string::npos ? "" : decoded(pair.substr(eq + 1)));
            if (amp == std::string::npos)
                break;
            start = amp + 1;
        }
    }
    size_t at = lineEnd == std::string::npos ? text.size() : lineEnd + 1;
    while (at < text.size()) {
        size_t end = text.find('\n', at);
        std::string line = text.substr(at, end - at);
        at = end == std::string::npos ? text.size() : end + 1;
        if (line.empty())
            break;
        size_t colon = line.find(':');
        request.headers.emplace_back(line.substr(0, colon),
                                     colon == std::string::npos ? "" : line.substr(colon + 1));
    }
    request.body = text.substr(at);
    if (trusted) {
        request.headers.emplace_back("Host", "127.0.0.1:8123");
        request.headers.emplace_back("Origin", "http://127.0.0.1:8123");
        request.headers.emplace_back("Cookie", "corvane_token=" + token);
    }
    return request;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    fuzzhost::ui();
    server::Request request = parsed(fuzzhost::text(data + 1, size - 1), (data[0] & 1) != 0);
    if (request.method == "POST" &&
        (request.path.rfind("/api/action", 0) == 0 || request.path.rfind("/api/box", 0) == 0 ||
         request.path.rfind("/api/layout", 0) == 0))
        return 0;
    server::Response response = browserHost().handle(request);
    if (response.status < 200 || response.status > 599)
        fuzzhost::broken("status " + std::to_string(response.status));
    if (response.status >= 400 && request.path.rfind("/api/", 0) == 0 && !response.events &&
        !nlohmann::json::accept(response.body))
        fuzzhost::broken("an error of the interface that is not JSON: " + response.body);
    return 0;
}
