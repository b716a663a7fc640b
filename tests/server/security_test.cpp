// Who gets in: the token cookie set from the printed URL, and every request without
// the token, with a foreign Host or Origin, or with a body too large refused without
// changing anything.
#include <string>
#include <vector>

#include "ServerFixture.h"

using namespace servertest;
namespace fs = std::filesystem;

namespace {

struct Refusal {
    const char *what;
    std::vector<std::pair<std::string, std::string>> headers;
    std::string query;
    int status;
    std::string error;
};

} // namespace

TEST_F(ServerTest, RequestsWithoutTheRightTokenHostOrOriginChangeNothing)
{
    startHost();
    const std::string cookie = "corvane_token=" + token;
    const std::string noToken = "the token is missing or wrong: open the URL corvane printed";
    const std::string badHost = "the Host header does not name this server";
    const std::string badOrigin = "requests from other origins are refused";
    const Refusal refusals[] = {
        {"no token", {{"Host", "127.0.0.1:8123"}}, "", 403, noToken},
        {"a wrong cookie", {{"Host", "127.0.0.1:8123"}, {"Cookie", "corvane_token=0123"}}, "", 403,
         noToken},
        {"a wrong token query", {{"Host", "127.0.0.1:8123"}}, "token=ffffffffffffffffffffffffffffffff",
         403, noToken},
        {"another cookie name", {{"Host", "127.0.0.1:8123"}, {"Cookie", "token=" + token}}, "",
         403, noToken},
        {"a foreign Host", {{"Host", "evil.example:8123"}, {"Cookie", cookie}}, "", 403, badHost},
        {"another port", {{"Host", "127.0.0.1:8124"}, {"Cookie", cookie}}, "", 403, badHost},
        {"no Host", {{"Cookie", cookie}}, "", 403, badHost},
        {"a foreign Origin",
         {{"Host", "127.0.0.1:8123"}, {"Cookie", cookie}, {"Origin", "http://evil.example"}}, "",
         403, badOrigin},
        {"an https Origin",
         {{"Host", "localhost:8123"}, {"Cookie", cookie}, {"Origin", "https://localhost:8123"}}, "",
         403, badOrigin},
    };
    json before = state();
    for (const Refusal &refusal : refusals) {
        Request request;
        request.method = "POST";
        request.path = "/api/action";
        request.headers = refusal.headers;
        if (!refusal.query.empty())
            request.query = {{"token", refusal.query.substr(6)}};
        request.body = json{{"type", "openLoader"}, {"loader", "Server Test Loader"}}.dump();
        Response response = handle(request);
        EXPECT_EQ(response.status, refusal.status) << refusal.what;
        EXPECT_EQ(response.body, json({{"error", refusal.error}}).dump()) << refusal.what;
    }
    Request tooLarge = pageRequest("POST", "/api/action", std::string(64 * 1024 + 1, ' '));
    Response large = handle(tooLarge);
    EXPECT_EQ(large.status, 413);
    EXPECT_EQ(large.body, R"({"error":"the request body is larger than 64 KiB"})");
    EXPECT_EQ(state(), before) << "a refused request changed the state";
    EXPECT_EQ(before["dialogs"], json::array());

    /* The same action with the page's credentials, and from localhost with its Origin. */
    Request good = pageRequest("POST", "/api/action",
                               json{{"type", "openLoader"}, {"loader", "Server Test Loader"}}.dump());
    good.headers = {{"host", "localhost:8123"},
                    {"cookie", "theme=dark; corvane_token=" + token},
                    {"origin", "http://localhost:8123"}};
    EXPECT_EQ(handle(good).status, 200);
    EXPECT_EQ(state()["dialogs"][0]["title"], "Server Test");
}

TEST_F(ServerTest, TheTokenInTheUrlSetsTheCookieAndRedirects)
{
    startHost();
    EXPECT_EQ(host().url(), "http://127.0.0.1:8123/?token=" + token);
    Request landing;
    landing.path = "/";
    landing.query = {{"token", token}};
    landing.headers = {{"Host", "127.0.0.1:8123"}};
    Response response = handle(landing);
    EXPECT_EQ(response.status, 303);
    EXPECT_EQ(response.header("Location"), "/");
    EXPECT_EQ(response.header("Set-Cookie"),
              "corvane_token=" + token + "; HttpOnly; SameSite=Strict; Path=/");
    EXPECT_EQ(response.header("Referrer-Policy"), "no-referrer");

    /* The token query alone lets an API request in too. */
    Request withQuery;
    withQuery.path = "/api/state";
    withQuery.query = {{"token", token}};
    withQuery.headers = {{"Host", "127.0.0.1:8123"}};
    Response stateResponse = handle(withQuery);
    EXPECT_EQ(stateResponse.status, 200);
    EXPECT_EQ(stateResponse.header("Content-Type"), "application/json");
    EXPECT_EQ(stateResponse.header("Cache-Control"), "no-store");
}

TEST_F(ServerTest, PagesHelpAndUnknownPaths)
{
    startHost();
    Response help = get("/help/addon_ordalis_loader_overview.html");
    EXPECT_EQ(help.status, 200);
    EXPECT_EQ(help.header("Content-Type"), "text/html; charset=utf-8");
    EXPECT_EQ(help.body, testfiles::readFile(testfiles::sourceDir / "host/web/help" /
                                             "addon_ordalis_loader_overview.html"));
    EXPECT_EQ(get("/help/help.css").header("Content-Type"), "text/css; charset=utf-8");

    const std::pair<const char *, int> paths[] = {
        {"/help/nothing.html", 404},     {"/help/../API.md", 404}, {"/help/%2e%2e/x", 404},
        {"/assets/../../etc/passwd", 404}, {"/help/.hidden", 404}, {"/api/nothing", 404},
        {"/etc/passwd", 404},
    };
    for (const auto &[path, status] : paths) {
        Response response = get(path);
        EXPECT_EQ(response.status, status) << path;
        EXPECT_EQ(response.header("Content-Type"), "application/json") << path;
    }
    Response wrongMethod = handle(pageRequest("GET", "/api/action"));
    EXPECT_EQ(wrongMethod.status, 405);
    EXPECT_EQ(wrongMethod.body, R"({"error":"/api/action takes POST only"})");
    EXPECT_EQ(wrongMethod.header("Allow"), "POST");
    EXPECT_EQ(handle(pageRequest("DELETE", "/api/state")).status, 405);
}

TEST_F(ServerTest, PageFilesComeFromTheWebFolderOnly)
{
    testfiles::ScratchDir scratch;
    webFolder_ = scratch / "web";
    startHost();
    Response unbuilt = get("/");
    EXPECT_EQ(unbuilt.status, 500);
    EXPECT_EQ(unbuilt.header("Content-Type"), "text/plain; charset=utf-8");
    EXPECT_EQ(unbuilt.body, "The browser page was not built: " + (scratch / "web/index.html").string() +
                                " is missing.\nBuild it with: cmake --build --preset release\n");

    fs::create_directories(scratch / "web/assets");
    testfiles::writeFile(scratch / "web/index.html", "<!doctype html><title>x</title>");
    testfiles::writeFile(scratch / "web/app.js", "console.log(1)");
    testfiles::writeFile(scratch / "web/assets/font.woff2", "woff");
    testfiles::writeFile(scratch / "secret.txt", "secret");
    fs::create_symlink(scratch / "secret.txt", scratch / "web/assets/leak.txt");
    const std::tuple<const char *, int, std::string, std::string> files[] = {
        {"/", 200, "text/html; charset=utf-8", "<!doctype html><title>x</title>"},
        {"/app.js", 200, "text/javascript; charset=utf-8", "console.log(1)"},
        {"/assets/font.woff2", 200, "font/woff2", "woff"},
        {"/app.css", 404, "application/json", R"({"error":"no such file"})"},
        {"/assets/leak.txt", 404, "application/json", R"({"error":"no such file"})"},
        {"/assets/../../secret.txt", 404, "application/json", R"({"error":"no such file"})"},
    };
    for (const auto &[path, status, type, body] : files) {
        Response response = get(path);
        EXPECT_EQ(response.status, status) << path;
        EXPECT_EQ(response.header("Content-Type"), type) << path;
        EXPECT_EQ(response.body, body) << path;
    }
}
