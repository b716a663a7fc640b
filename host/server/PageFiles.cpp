/*
 * PageFiles.cpp - static files of the page and the help.
 */
#include "PageFiles.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <system_error>

#include <fmt/format.h>

namespace corvane::server {

namespace fs = std::filesystem;

namespace {

/* The path below the folder a request path names, or nothing when a part
   of it is empty, "." or ".." or hides a file. */
std::optional<fs::path> relativePath(std::string_view path)
{
    fs::path relative;
    while (!path.empty()) {
        std::size_t slash = path.find('/');
        std::string_view part = path.substr(0, slash);
        if (part.empty() || part.front() == '.' || part.find('\\') != std::string_view::npos)
            return std::nullopt;
        relative /= std::string(part);
        path = slash == std::string_view::npos ? std::string_view() : path.substr(slash + 1);
    }
    if (relative.empty())
        return std::nullopt;
    return relative;
}

Response notFound()
{
    return errorResponse(404, "no such file");
}

} // namespace

std::string contentType(const fs::path &file)
{
    static const std::map<std::string, std::string> types = {
        {".html", "text/html; charset=utf-8"},
        {".js", "text/javascript; charset=utf-8"},
        {".mjs", "text/javascript; charset=utf-8"},
        {".css", "text/css; charset=utf-8"},
        {".json", "application/json"},
        {".map", "application/json"},
        {".svg", "image/svg+xml"},
        {".png", "image/png"},
        {".ico", "image/x-icon"},
        {".woff2", "font/woff2"},
        {".woff", "font/woff"},
        {".txt", "text/plain; charset=utf-8"},
        {".wasm", "application/wasm"}};
    auto found = types.find(file.extension().string());
    return found != types.end() ? found->second : "application/octet-stream";
}

fs::path PageFiles::besideExecutable()
{
    std::error_code ec;
    fs::path binary = fs::read_symlink("/proc/self/exe", ec);
    return ec ? fs::path("web") : binary.parent_path() / "web";
}

std::optional<Response> PageFiles::serve(const std::string &path) const
{
    if (path == "/") {
        std::error_code ec;
        if (!fs::is_regular_file(folder_ / "index.html", ec))
            return textResponse(
                500,
                fmt::format("The browser page was not built: {} is missing.\n"
                            "Build it with: cmake --build --preset release\n",
                            (folder_ / "index.html").string()),
                "text/plain; charset=utf-8");
        return file("index.html");
    }
    if (path == "/app.js" || path == "/app.css")
        return file(path.substr(1));
    for (std::string_view mount : {"/assets/", "/help/"}) {
        if (path.starts_with(mount)) {
            auto relative = relativePath(std::string_view(path).substr(1));
            return relative ? file(*relative) : notFound();
        }
    }
    return std::nullopt;
}

Response PageFiles::file(const fs::path &relative) const
{
    std::error_code ec;
    fs::path root = fs::canonical(folder_, ec);
    if (ec)
        return notFound();
    fs::path target = fs::canonical(root / relative, ec);
    if (ec || !fs::is_regular_file(target, ec))
        return notFound();
    /* Inside the folder once symbolic links are resolved. */
    auto inside = std::mismatch(root.begin(), root.end(), target.begin(), target.end());
    if (inside.first != root.end())
        return notFound();
    std::ifstream in(target, std::ios::binary);
    std::string body{std::istreambuf_iterator<char>(in), {}};
    if (in.bad())
        return errorResponse(500, fmt::format("cannot read {}", target.string()));
    Response response = textResponse(200, std::move(body), contentType(target));
    response.headers.emplace_back("Cache-Control", "no-cache");
    return response;
}

} // namespace corvane::server
