// The file chooser's folders: resolved paths, folders first, the filter, and every
// path that is not a readable folder refused with its reason.
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <string>

#include "ServerFixture.h"

using namespace servertest;
namespace fs = std::filesystem;

namespace {

Request listing(const std::string &dir, const std::string &filter = "")
{
    Request request = pageRequest("GET", "/api/files");
    request.query = {{"dir", dir}};
    if (!filter.empty())
        request.query.emplace_back("filter", filter);
    return request;
}

std::vector<std::string> names(const json &entries)
{
    std::vector<std::string> found;
    for (const json &entry : entries)
        found.push_back(entry["name"].get<std::string>() + (entry["dir"] ? "/" : ""));
    return found;
}

} // namespace

TEST_F(ServerTest, FoldersAreListedFoldersFirstThroughTheFilter)
{
    startHost();
    testfiles::ScratchDir scratch;
    fs::path top = fs::canonical(scratch.path());
    for (const char *folder : {"zeta", "alpha", "alpha/inner", ".hidden"})
        fs::create_directory(top / folder);
    for (const char *file : {"b.twc", "A.TWC", "notes.txt", "c.twc.bak", "alpha/x.twc"})
        testfiles::writeFile(top / file, "12345");
    ::mkfifo((top / "pipe.twc").c_str(), 0600);
    fs::create_symlink(top / "alpha", top / "linked");
    fs::create_symlink(top / "missing", top / "dangling.twc");

    Response response = handle(listing(top.string(), "*.twc"));
    ASSERT_EQ(response.status, 200) << response.body;
    json list = json::parse(response.body);
    EXPECT_EQ(list["dir"], top.string());
    EXPECT_EQ(list["parent"], top.parent_path().string());
    EXPECT_EQ(names(list["entries"]),
              (std::vector<std::string>{".hidden/", "alpha/", "linked/", "zeta/", "A.TWC", "b.twc"}));
    EXPECT_EQ(list["entries"][4], json({{"name", "A.TWC"}, {"dir", false}, {"size", 5}}));
    EXPECT_EQ(list["entries"][0]["size"], nullptr);

    const std::pair<std::string, std::vector<std::string>> filters[] = {
        {"*.*", {"A.TWC", "b.twc", "c.twc.bak", "notes.txt"}},
        {"*", {"A.TWC", "b.twc", "c.twc.bak", "notes.txt"}},
        {"*.txt; *.bak", {"c.twc.bak", "notes.txt"}},
        {"?.twc", {"A.TWC", "b.twc"}},
    };
    for (const auto &[filter, files] : filters) {
        json entries = json::parse(handle(listing(top.string(), filter)).body)["entries"];
        std::vector<std::string> found = names(entries);
        found.erase(found.begin(), found.begin() + 4); /* the folders */
        EXPECT_EQ(found, files) << filter;
    }

    /* ".." and symbolic links are resolved to the real place. */
    json up = json::parse(handle(listing((top / "zeta/../alpha/inner/..").string())).body);
    EXPECT_EQ(up["dir"], (top / "alpha").string());
    EXPECT_EQ(names(up["entries"]), (std::vector<std::string>{"inner/", "x.twc"}));
    fs::path outside = fs::canonical(testfiles::sourceDir / "examples");
    fs::create_symlink(outside, top / "escape");
    EXPECT_EQ(json::parse(handle(listing((top / "escape").string())).body)["dir"], outside.string());
    EXPECT_EQ(json::parse(handle(listing("/")).body)["parent"], nullptr);
}

TEST_F(ServerTest, WhatIsNotAReadableFolderIsRefused)
{
    startHost();
    testfiles::ScratchDir scratch;
    fs::path top = fs::canonical(scratch.path());
    testfiles::writeFile(top / "file.txt", "x");
    fs::create_directory(top / "locked");
    fs::permissions(top, fs::perms::owner_all | fs::perms::group_exec | fs::perms::others_exec);
    fs::permissions(top / "locked", fs::perms::none);

    const std::tuple<std::string, int, std::string> refused[] = {
        {"/dev/null", 403, "/dev/null is a device"},
        {(top / "file.txt").string(), 403, (top / "file.txt").string() + " is not a folder"},
        {(top / "nowhere").string(), 404, (top / "nowhere").string() + ": No such file or directory"},
        {"relative/path", 400, "\"relative/path\" is not an absolute path"},
    };
    for (const auto &[dir, status, error] : refused) {
        Response response = handle(listing(dir));
        EXPECT_EQ(response.status, status) << dir;
        EXPECT_EQ(json::parse(response.body), json({{"error", error}})) << dir;
    }

    /* Root reads every folder: look as another user then. */
    bool root = ::geteuid() == 0;
    if (root) {
        ASSERT_EQ(::seteuid(65534), 0);
    }
    Response locked = handle(listing((top / "locked").string()));
    if (root) {
        ASSERT_EQ(::seteuid(0), 0);
    }
    EXPECT_EQ(locked.status, 403);
    EXPECT_EQ(json::parse(locked.body),
              json({{"error", (top / "locked").string() + ": Permission denied"}}));

    std::vector<std::string> dev = names(json::parse(handle(listing("/dev")).body)["entries"]);
    for (const char *device : {"null", "zero", "urandom", "tty"})
        EXPECT_EQ(std::count(dev.begin(), dev.end(), device), 0) << device << " is listed";
    fs::permissions(top / "locked", fs::perms::owner_all);
}
