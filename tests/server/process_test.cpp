// corvane ui as users start it: a process that prints the address, answers real
// HTTP requests (an event stream among them) and stops cleanly on Ctrl-C, answering
// the box that was waiting.
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <future>
#include <regex>
#include <string>
#include <thread>

#include <httplib.h>

#include "ServerFixture.h"

using namespace testfiles;
using nlohmann::json;

namespace {

/* corvane with args in cwd: standard output on a pipe, standard error in a file. */
class CorvaneProcess {
public:
    CorvaneProcess(std::vector<std::string> args, const fs::path &cwd, const fs::path &errFile)
    {
        int pipeEnds[2];
        if (::pipe(pipeEnds) != 0)
            return;
        std::string binary = (fs::path(ORDALIS_BIN_DIR) / "corvane").string();
        std::vector<char *> argv{binary.data()};
        for (auto &arg : args)
            argv.push_back(arg.data());
        argv.push_back(nullptr);
        pid_ = ::fork();
        if (pid_ == 0) {
            int in = ::open("/dev/null", O_RDONLY);
            int err = ::open(errFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            if (in < 0 || err < 0 || ::chdir(cwd.c_str()) != 0)
                ::_exit(126);
            ::dup2(in, 0);
            ::dup2(pipeEnds[1], 1);
            ::dup2(err, 2);
            ::close(pipeEnds[0]);
            ::execv(argv[0], argv.data());
            ::_exit(127);
        }
        ::close(pipeEnds[1]);
        out_ = ::fdopen(pipeEnds[0], "r");
    }
    ~CorvaneProcess()
    {
        if (pid_ > 0 && !ended_) {
            ::kill(pid_, SIGKILL);
            ::waitpid(pid_, nullptr, 0);
        }
        if (out_)
            std::fclose(out_);
    }

    /* The next line of standard output, without its line feed. */
    std::string line()
    {
        char buffer[512];
        if (!out_ || !std::fgets(buffer, sizeof buffer, out_))
            return "";
        std::string text = buffer;
        if (!text.empty() && text.back() == '\n')
            text.pop_back();
        return text;
    }
    /* Sends the signal and waits: the exit status, 128 + signal when killed. */
    int stop(int signal)
    {
        ::kill(pid_, signal);
        int status = 0;
        ::waitpid(pid_, &status, 0);
        ended_ = true;
        return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    }

private:
    pid_t pid_ = -1;
    std::FILE *out_ = nullptr;
    bool ended_ = false;
};

/* The state once holds(state) is true, or null after 10 s: corvane prints
   its address before the add-on is loaded (a box of the loading must reach
   the page), and a dialog an action opens may reach the state a moment
   after the action returns; on a busy machine a test sees both. */
json stateWhen(httplib::Client &client, const httplib::Headers &page,
               const std::function<bool(const json &)> &holds)
{
    for (int tries = 0; tries < 1000; tries++) {
        auto got = client.Get("/api/state", page);
        if (got && got->status == 200) {
            json state = json::parse(got->body);
            if (holds(state))
                return state;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return nullptr;
}

bool hasLoaders(const json &state) { return !state["loaders"].empty(); }
bool hasDialog(const json &state) { return !state["dialogs"].empty(); }

} // namespace

TEST(ServerProcess, ServesOverHttpAndStopsOnCtrlC)
{
    ScratchDir scratch;
    fs::create_directory(scratch / "library");
    ::setenv("ORDALIS_DIR", (scratch / "library").c_str(), 1);
    std::string data = (examplesDir / "cooling_curve.txt").string();
    CorvaneProcess corvane({"ui", data, "--no-open", "--port", "0"}, scratch.path(),
                           scratch / "err.txt");
    ::unsetenv("ORDALIS_DIR");

    std::string line = corvane.line();
    std::smatch url;
    const std::regex printed("Open http://127\\.0\\.0\\.1:([0-9]+)/\\?token=([0-9a-f]{32})");
    ASSERT_TRUE(std::regex_match(line, url, printed))
        << line;
    int port = std::stoi(url[1]);
    std::string token = url[2];
    httplib::Client client("127.0.0.1", port);

    auto landing = client.Get("/?token=" + token);
    ASSERT_TRUE(landing);
    EXPECT_EQ(landing->status, 303);
    EXPECT_EQ(landing->get_header_value("Location"), "/");
    EXPECT_EQ(landing->get_header_value("Set-Cookie"),
              "corvane_token=" + token + "; HttpOnly; SameSite=Strict; Path=/");
    EXPECT_EQ(client.Get("/api/state")->status, 403);
    httplib::Headers page = {{"Cookie", "corvane_token=" + token}};

    /* The event stream starts with the state. */
    std::string events;
    client.Get("/api/events", page, [&](const char *chunk, size_t size) {
        events.append(chunk, size);
        return events.find("\n\n") == std::string::npos;
    });
    ASSERT_TRUE(events.starts_with("event: state\ndata: {\"version\":")) << events;
    EXPECT_EQ(stateWhen(client, page, hasLoaders)["loaders"], json({"Ordalis Loader"}));

    auto opened = client.Post("/api/action", page, R"({"type":"openLoader","loader":"Ordalis Loader"})",
                              "application/json");
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->body, R"({"ok":true})");
    json dialog = stateWhen(client, page, hasDialog)["dialogs"][0];
    EXPECT_EQ(dialog["title"], "Ordalis Loader");
    std::string fileName = dialog["controls"][3]["text"];
    EXPECT_TRUE(fileName.ends_with("cooling_curve.txt")) << "the data file given is chosen";
    auto help = client.Get("/help/help.css", page);
    EXPECT_EQ(help->status, 200);
    EXPECT_EQ(help->body, readFile(sourceDir / "host/web/help/help.css"));

    /* Cancel takes the dialog down (the loader frees what it holds for it). */
    auto cancelled = client.Post("/api/action", page,
                                 json{{"type", "dialogButton"}, {"dialog", dialog["id"]},
                                      {"button", "cancel"}}.dump(),
                                 "application/json");
    EXPECT_EQ(cancelled->body, R"({"ok":true})");
    EXPECT_EQ(corvane.stop(SIGINT), 0);
    EXPECT_EQ(readFile(scratch / "err.txt"), "");
    EXPECT_EQ(corvane.line(), "") << "nothing more on standard output";
}

TEST(ServerProcess, StoppingAnswersTheBoxThatWaits)
{
    ScratchDir scratch;
    CorvaneProcess corvane({"ui", "--no-open", "--addon", ORDALIS_BIN_DIR "/libserver_addon.so",
                            "--transcript", "t.jsonl"},
                           scratch.path(), scratch / "err.txt");
    std::string line = corvane.line();
    std::smatch url;
    ASSERT_TRUE(std::regex_match(line, url, std::regex("Open http://127.0.0.1:([0-9]+)/\\?token=(.*)")));
    int port = std::stoi(url[1]);
    httplib::Headers page = {{"Cookie", "corvane_token=" + url[2].str()}};
    httplib::Client client("127.0.0.1", port);
    ASSERT_FALSE(stateWhen(client, page, hasLoaders).is_null());
    client.Post("/api/action", page, R"({"type":"openLoader","loader":"Server Test Loader"})",
                "application/json");
    json dialog = stateWhen(client, page, hasDialog)["dialogs"][0];
    int ask = dialog["controls"][4]["id"];
    ASSERT_EQ(dialog["controls"][4]["label"], "Ask");

    /* Ask raises a question, which waits; SIGTERM answers it No and ends. */
    auto asking = std::async(std::launch::async, [&] {
        httplib::Client other("127.0.0.1", port);
        return other.Post("/api/action", page, json{{"type", "press"}, {"control", ask}}.dump(),
                          "application/json");
    });
    std::string events;
    client.Get("/api/events", page, [&](const char *chunk, size_t size) {
        events.append(chunk, size);
        return events.find("\"kind\":\"question\"") == std::string::npos;
    });
    EXPECT_EQ(corvane.stop(SIGTERM), 0);
    auto asked = asking.get();
    ASSERT_TRUE(asked);
    EXPECT_EQ(asked->body, R"({"ok":true})");
    EXPECT_EQ(readFile(scratch / "err.txt"), "");
    EXPECT_EQ(readFile(scratch / "t.jsonl"),
              R"({"event":"message","type":"yesno","text":"Proceed?","answer":"no"})" "\n");
}

TEST(ServerProcess, ABusyPortAndAMissingDataFileFailCleanly)
{
    ScratchDir scratch;
    httplib::Server blocker;
    int taken = blocker.bind_to_any_port("127.0.0.1");
    Result busy = runCorvane({"ui", "--no-open", "--port", std::to_string(taken)}, scratch.path());
    EXPECT_EQ(busy.status, 1);
    EXPECT_EQ(busy.out, "");
    EXPECT_EQ(busy.err, "corvane: cannot listen on 127.0.0.1:" + std::to_string(taken) +
                            ": Address already in use\n");

    Result missing = runCorvane({"ui", "nothing.txt", "--no-open"}, scratch.path());
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.err, "cannot read DATAFILE nothing.txt: No such file or directory\n"
                           "Run with --help for more information.\n");
    Result addOn = runCorvane({"ui", "--no-open", "--addon", "/nowhere/lib.so"}, scratch.path());
    EXPECT_EQ(addOn.status, 1);
    EXPECT_TRUE(addOn.out.starts_with("Open http://127.0.0.1:")) << addOn.out;
    EXPECT_EQ(addOn.err, "corvane: cannot load add-on /nowhere/lib.so: /nowhere/lib.so: cannot "
                         "open shared object file: No such file or directory\n");
}
