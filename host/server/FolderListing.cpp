/*
 * FolderListing.cpp - resolving, checking and listing a folder.
 */
#include "FolderListing.h"

#include <fnmatch.h>
#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include <fmt/format.h>

#include "DataOutput.h"

namespace corvane::server {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

namespace {

bool isDevice(fs::file_type type)
{
    return type == fs::file_type::character || type == fs::file_type::block ||
           type == fs::file_type::fifo || type == fs::file_type::socket;
}

struct Entry {
    std::string name;
    bool folder = false;
    std::uintmax_t size = 0;
};

ListingRefusal refusal(int status, std::string reason)
{
    return {status, std::move(reason)};
}

/* $HOME, else the home folder of the user's account, else the root. */
std::string userHome()
{
    if (const char *home = std::getenv("HOME"); home != nullptr && *home == '/')
        return home;
    passwd account{};
    passwd *found = nullptr;
    std::vector<char> buffer(16384);
    if (::getpwuid_r(::getuid(), &account, buffer.data(), buffer.size(), &found) == 0 &&
        found != nullptr && account.pw_dir != nullptr)
        return account.pw_dir;
    return "/";
}

} // namespace

bool matchesFilter(const std::string &name, std::string_view filter)
{
    bool any = false;
    std::size_t start = 0;
    while (start <= filter.size()) {
        std::size_t end = std::min(filter.find(';', start), filter.size());
        std::string pattern(filter.substr(start, end - start));
        pattern.erase(0, pattern.find_first_not_of(' '));
        pattern.erase(pattern.find_last_not_of(' ') + 1);
        if (!pattern.empty()) {
            any = true;
            if (pattern == "*" || pattern == "*.*" ||
                ::fnmatch(pattern.c_str(), name.c_str(), FNM_CASEFOLD) == 0)
                return true;
        }
        start = end + 1;
    }
    return !any;
}

FolderListing listFolder(const std::string &path, std::string_view filter)
{
    if (path.empty() || path.front() != '/')
        return {{}, refusal(400, fmt::format("\"{}\" is not an absolute path", path))};
    std::error_code ec;
    fs::path folder = fs::canonical(path, ec);
    if (ec) {
        int status = ec == std::errc::no_such_file_or_directory ? 404 : 403;
        return {{}, refusal(status, fmt::format("{}: {}", path, ec.message()))};
    }
    fs::file_status status = fs::status(folder, ec);
    if (isDevice(status.type()))
        return {{}, refusal(403, fmt::format("{} is a device", folder.string()))};
    if (status.type() != fs::file_type::directory)
        return {{}, refusal(403, fmt::format("{} is not a folder", folder.string()))};

    fs::directory_iterator items(folder, ec);
    if (ec)
        return {{}, refusal(403, fmt::format("{}: {}", folder.string(), ec.message()))};
    std::vector<Entry> entries;
    for (; items != fs::directory_iterator(); items.increment(ec)) {
        const fs::directory_entry &item = *items;
        fs::file_status itemStatus = item.status(ec); /* through symbolic links */
        if (ec)
            continue; /* a dangling link, or one that cannot be followed */
        std::string name = item.path().filename().string();
        if (itemStatus.type() == fs::file_type::directory)
            entries.push_back({name, true, 0});
        else if (itemStatus.type() == fs::file_type::regular && matchesFilter(name, filter))
            entries.push_back({name, false, item.file_size(ec)});
    }
    if (ec)
        return {{}, refusal(403, fmt::format("{}: {}", folder.string(), ec.message()))};
    std::sort(entries.begin(), entries.end(), [](const Entry &a, const Entry &b) {
        return a.folder != b.folder ? a.folder : a.name < b.name;
    });

    Json list = Json::array();
    for (const Entry &entry : entries)
        list.push_back({{"name", cli::asUtf8(entry.name)},
                        {"dir", entry.folder},
                        {"size", entry.folder ? Json(nullptr) : Json(entry.size)}});
    Json parent = folder.has_relative_path() ? Json(folder.parent_path().string()) : Json(nullptr);
    return {Json{{"dir", folder.string()}, {"parent", parent}, {"entries", std::move(list)}},
            std::nullopt};
}

std::string startingFolder(const std::optional<std::string> &proposedName)
{
    if (proposedName && !proposedName->empty()) {
        std::error_code ec;
        fs::path folder = fs::absolute(*proposedName, ec).parent_path();
        if (!ec && fs::is_directory(folder, ec))
            return folder.string();
    }
    return userHome();
}

} // namespace corvane::server
