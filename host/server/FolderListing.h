/*
 * FolderListing.h - the folders the page's file chooser shows. A path is
 * resolved first (".." and symbolic links, with std::filesystem::canonical)
 * and must then be a folder that can be read; device files, pipes and
 * sockets are never listed.
 *
 *   {"dir": "/resolved", "parent": "/" | null,
 *    "entries": [{"name", "dir": true, "size": null} ...,
 *                {"name", "dir": false, "size": BYTES} ...]}
 *
 * Folders first, then the files that match the filter, each sorted by name.
 */
#ifndef CORVANE_SERVER_FOLDERLISTING_H
#define CORVANE_SERVER_FOLDERLISTING_H

#include <optional>
#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

namespace corvane::server {

/* Why a folder cannot be listed, and the HTTP status that says it. */
struct ListingRefusal {
    int status = 403; /* 404: there is no such path */
    std::string reason;
};

struct FolderListing {
    nlohmann::ordered_json json; /* when refusal is empty */
    std::optional<ListingRefusal> refusal;
};

/* The listing of the folder at path (absolute); filter is a list of
   patterns with * and ? separated by ';' (case ignored; empty, "*" or
   "*.*": every file). */
FolderListing listFolder(const std::string &path, std::string_view filter);

/* Whether a file name matches the filter. */
bool matchesFilter(const std::string &name, std::string_view filter);

/* The folder to list when the page names none: the folder of a proposed
   file name when it exists, else the user's home folder. */
std::string startingFolder(const std::optional<std::string> &proposedName);

} // namespace corvane::server

#endif
