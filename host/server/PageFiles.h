/*
 * PageFiles.h - the page's files and the help pages, served from the web
 * folder beside the corvane binary (bin/web in the build):
 *
 *   /               index.html
 *   /app.js, /app.css, /assets/...
 *   /help/NAME      help/NAME
 *
 * Only files inside the folder are served, never through ".." or a
 * symbolic link that leads out of it. Without index.html the page was not
 * built: / answers 500 with a text that says so.
 */
#ifndef CORVANE_SERVER_PAGEFILES_H
#define CORVANE_SERVER_PAGEFILES_H

#include <filesystem>
#include <optional>
#include <string>

#include "HttpMessage.h"

namespace corvane::server {

class PageFiles {
public:
    explicit PageFiles(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /* The answer to GET path when it names a page file or help page, or
       nothing when the path is not one of theirs. */
    std::optional<Response> serve(const std::string &path) const;

    /* The web folder beside the running executable. */
    static std::filesystem::path besideExecutable();

private:
    Response file(const std::filesystem::path &relative) const;

    std::filesystem::path folder_;
};

/* The Content-Type of a file by its extension. */
std::string contentType(const std::filesystem::path &file);

} // namespace corvane::server

#endif
