// The page acting in the add-on's dialogs: actions run the add-on's callbacks and
// grow the state's version; boxes raised by a callback wait for /api/box while the
// action's request waits; progress, please-wait and help; stopping cancels progress.
#include <future>
#include <string>

#include "ServerFixture.h"

using namespace servertest;
namespace fs = std::filesystem;

namespace {

bool hasBox(const json &state)
{
    return !state["box"].is_null();
}

} // namespace

TEST_F(ServerTest, ActionsRunTheCallbacksAndTheVersionGrows)
{
    startHost(serverAddOn, "title=Given;x=1");
    json first = state();
    EXPECT_EQ(first["loaders"], json({"Server Test Loader"}));
    EXPECT_EQ(first["dialogs"], json::array());

    openDialog();
    json opened = state();
    EXPECT_GT(opened["version"], first["version"]);
    ASSERT_EQ(opened["dialogs"].size(), 1u);
    EXPECT_EQ(opened["dialogs"][0]["title"], "Server Test");
    EXPECT_EQ(opened["dialogs"][0]["buttons"], json({"ok", "cancel", "help"}));
    EXPECT_EQ(textOf("Values:"), "title=Given;x=1") << "the data file given is preselected";
    const json &values = opened["dialogs"][0]["controls"][1];
    EXPECT_EQ(values.dump(), R"({"id":3,"kind":"field","label":null,"caption":"Values:",)"
                             R"("sensitive":true,"x":80,"y":8,"width":220,"height":14,)"
                             R"("text":"title=Given;x=1"})");

    auto [typed, ok] = act({{"type", "text"}, {"control", control("Values:")}, {"text", "x=1,2"}});
    EXPECT_EQ(typed, 200);
    EXPECT_EQ(ok, json({{"ok", true}}));
    EXPECT_EQ(textOf("Values:"), "x=1,2");
    EXPECT_GT(state()["version"], opened["version"]);
    json unchanged = state();
    EXPECT_EQ(act({{"type", "text"}, {"control", control("Values:")}, {"text", "x=1,2"}}).first, 200);
    EXPECT_EQ(state()["version"], unchanged["version"]) << "nothing changed, no new version";

    const std::pair<json, std::pair<int, std::string>> refused[] = {
        {{{"type", "openLoader"}, {"loader", "Server Test Loader"}},
         {409, "cannot open a loader while the dialog \"Server Test\" is up"}},
        {{{"type", "press"}, {"control", 999}}, {409, "control 999 is not a control"}},
        {{{"type", "press"}, {"control", control("Values:")}},
         {409, "control 3 is not of a kind this action works on"}},
        {{{"type", "dialogButton"}, {"dialog", topDialog()}, {"button", "apply"}},
         {400, "the action needs \"button\": ok, cancel or help"}},
        {{{"type", "choose"}, {"control", 3}}, {400, "the action needs \"item\": an item number"}},
        {{{"type", "press"}, {"control", "3"}}, {400, "the action needs \"control\": a control id"}},
        {{{"type", "jump"}}, {400, "unknown action type \"jump\""}},
        {json::array(), {400, "the action is not a JSON object"}},
    };
    for (const auto &[action, expected] : refused) {
        auto [status, body] = act(action);
        EXPECT_EQ(status, expected.first) << action;
        EXPECT_EQ(body, json({{"error", expected.second}})) << action;
    }

    /* OK loads the data set the values describe and takes the dialog down; the
       loader opens again with the last load's instructions, not the data file. */
    EXPECT_EQ(act({{"type", "dialogButton"}, {"dialog", topDialog()}, {"button", "ok"}}).first, 200);
    json loaded = state();
    EXPECT_EQ(loaded["dialogs"], json::array());
    EXPECT_EQ(loaded["dataSets"].dump(),
              R"([{"index":0,"title":"Values","variables":["x"],"plotType":null,)"
              R"("zones":[{"name":"Zone 1","imax":2,"jmax":1,"kmax":1,"points":2}]}])");
    openDialog();
    EXPECT_EQ(textOf("Values:"), "x=1,2");
}

TEST_F(ServerTest, AQuestionWaitsForItsAnswerWhileTheActionWaits)
{
    startHost();
    loadValues("x=1,2,3;y=4,5,6");
    openDialog();
    auto stream = host().handle(pageRequest("GET", "/api/events")).events;
    ASSERT_TRUE(stream);
    int ask = control("Ask");
    auto pressed = pressLater(ask);
    json asking = awaitState(*stream, hasBox);
    ASSERT_FALSE(asking.is_null());
    int id = asking["box"]["id"].get<int>();
    EXPECT_EQ(asking["box"], json({{"id", id}, {"kind", "question"}, {"text", "Proceed?"}}));
    EXPECT_EQ(pressed.wait_for(std::chrono::seconds(0)), std::future_status::timeout)
        << "the action answered before its question";

    /* While the box waits: data reads are served, actions are refused. */
    Response table = get("/api/datasets/0/table");
    EXPECT_EQ(table.body, R"({"variables":["x","y"],"rows":[[1.0,4.0],[2.0,5.0],[3.0,6.0]]})");
    EXPECT_EQ(act({{"type", "press"}, {"control", ask}}),
              std::make_pair(409, json({{"error", "a box is waiting for an answer"}})));
    const std::pair<json, std::pair<int, std::string>> wrongAnswers[] = {
        {{{"id", id + 1}, {"answer", true}},
         {409, "no box " + std::to_string(id + 1) + " is waiting for an answer"}},
        {{{"id", id}, {"path", "/tmp/x"}},
         {400, "box " + std::to_string(id) + " takes \"answer\", not a path"}},
        {{{"id", id}},
         {400, "the answer needs \"answer\": true or false, or \"path\": a path or null"}},
        {{{"answer", true}}, {400, "the answer needs \"id\": the box's id"}},
    };
    for (const auto &[answer, expected] : wrongAnswers) {
        Response response = post("/api/box", answer);
        EXPECT_EQ(response.status, expected.first) << answer;
        EXPECT_EQ(json::parse(response.body), json({{"error", expected.second}})) << answer;
    }

    Response answered = post("/api/box", {{"id", id}, {"answer", true}});
    EXPECT_EQ(answered.status, 200);
    EXPECT_EQ(pressed.get(), std::make_pair(200, json({{"ok", true}})));
    json after = state();
    EXPECT_EQ(after["box"], nullptr);
    EXPECT_EQ(textOf("Answer:"), "yes");
    EXPECT_EQ(post("/api/box", {{"id", id}, {"answer", false}}).status, 409)
        << "a box answered twice";
    EXPECT_EQ(transcript_.back(),
              R"({"event":"message","type":"yesno","text":"Proceed?","answer":"yes"})");
}

TEST_F(ServerTest, ProgressIsCancelledFromThePage)
{
    startHost();
    openDialog();
    auto stream = host().handle(pageRequest("GET", "/api/events")).events;
    EXPECT_EQ(post("/api/progress/cancel", json::object()).body,
              R"({"error":"no progress box with a Cancel button is up"})");
    int count = control("Count");
    auto pressed = pressLater(count);
    json counting = awaitState(*stream, [](const json &s) { return !s["progress"].is_null(); });
    EXPECT_EQ(counting["progress"]["label"], "Counting...");
    EXPECT_EQ(counting["progress"]["cancel"], true);
    Response cancelled = post("/api/progress/cancel", json::object());
    EXPECT_EQ(cancelled.status, 200);
    EXPECT_EQ(pressed.get().first, 200);
    EXPECT_EQ(state()["progress"], nullptr);
    EXPECT_EQ(textOf("Answer:"), "cancelled");
    EXPECT_EQ(transcript_, (std::vector<std::string>{
                               R"({"event":"progress","label":"Counting...","cancel":true})",
                               R"({"event":"progress-end"})"}));
}

TEST_F(ServerTest, FileChooserPleaseWaitErrorAndHelp)
{
    startHost();
    testfiles::ScratchDir scratch;
    openDialog();
    std::string proposed = (scratch / "values.txt").string();
    act({{"type", "text"}, {"control", control("File name:")}, {"text", proposed}});
    auto stream = host().handle(pageRequest("GET", "/api/events")).events;

    int save = control("Save...");
    auto saving = pressLater(save);
    json choosing = awaitState(*stream, hasBox);
    int id = choosing["box"]["id"].get<int>();
    EXPECT_EQ(choosing["box"], json({{"id", id},
                                     {"kind", "file"},
                                     {"mode", "write"},
                                     {"title", "Save values"},
                                     {"defaultName", proposed},
                                     {"filter", "*.txt"}}));
    EXPECT_EQ(json::parse(get("/api/files").body)["dir"], fs::canonical(scratch.path()).string())
        << "the chooser starts in the proposed name's folder";
    const std::pair<std::string, std::string> refused[] = {
        {"/dev/null", "/dev/null is a device"},
        {scratch.path().string(), scratch.path().string() + " is a folder"},
    };
    for (const auto &[path, error] : refused) {
        Response response = post("/api/box", {{"id", id}, {"path", path}});
        EXPECT_EQ(response.status, 403) << path;
        EXPECT_EQ(json::parse(response.body), json({{"error", error}}));
    }
    EXPECT_EQ(post("/api/box", {{"id", id}, {"path", "values.txt"}}).status, 400);
    EXPECT_EQ(post("/api/box", {{"id", id}, {"answer", true}}).body,
              R"({"error":"box )" + std::to_string(id) +
                  R"( is a file chooser: answer it with \"path\""})");
    EXPECT_EQ(post("/api/box", {{"id", id}, {"path", proposed}}).status, 200);
    EXPECT_EQ(saving.get().first, 200);
    EXPECT_EQ(textOf("Answer:"), proposed);

    auto cancelling = pressLater(save);
    id = awaitState(*stream, hasBox)["box"]["id"].get<int>();
    EXPECT_EQ(post("/api/box", {{"id", id}, {"path", nullptr}}).status, 200);
    EXPECT_EQ(cancelling.get().first, 200);
    EXPECT_EQ(textOf("Answer:"), "no file");

    int wait = control("Wait");
    auto waiting = pressLater(wait);
    json busy = awaitState(*stream, hasBox);
    EXPECT_EQ(busy["busy"], "Thinking");
    EXPECT_EQ(busy["box"]["kind"], "information");
    EXPECT_EQ(busy["box"]["text"], "Still thinking");
    post("/api/box", {{"id", busy["box"]["id"]}, {"answer", true}});
    EXPECT_EQ(waiting.get().first, 200);
    EXPECT_EQ(state()["busy"], nullptr);

    int fail = control("Fail");
    auto failing = pressLater(fail);
    json error = awaitState(*stream, hasBox);
    EXPECT_EQ(error["box"]["kind"], "error");
    EXPECT_EQ(error["box"]["text"], "Something failed");
    post("/api/box", {{"id", error["box"]["id"]}, {"answer", true}});
    EXPECT_EQ(failing.get().first, 200);

    /* Help goes to every page as an event, a new stream starts with the state. */
    auto other = host().handle(pageRequest("GET", "/api/events")).events;
    EXPECT_EQ(nextEvent(*other).name, "state");
    EXPECT_EQ(act({{"type", "dialogButton"}, {"dialog", topDialog()}, {"button", "help"}}).first, 200);
    for (auto *each : {stream.get(), other.get()}) {
        Event help = nextEvent(*each);
        while (help.name == "state")
            help = nextEvent(*each);
        EXPECT_EQ(help.name, "help");
        EXPECT_EQ(help.data, json({{"page", "/help/server_test.html#top"}}));
    }
    EXPECT_EQ(transcript_,
              (std::vector<std::string>{
                  R"({"event":"file","title":"Save values","answer":")" + proposed + R"("})",
                  R"({"event":"file","title":"Save values","answer":""})",
                  R"({"event":"message","type":"information","text":"Still thinking",)"
                  R"("answer":"ok"})",
                  R"({"event":"error","text":"Something failed"})",
                  R"({"event":"help","page":"server_test.html#top"})"}));
}

TEST_F(ServerTest, StoppingCancelsTheProgressAndEndsTheStreams)
{
    startHost();
    openDialog();
    auto stream = host().handle(pageRequest("GET", "/api/events")).events;
    int count = control("Count");
    auto pressed = pressLater(count);
    ASSERT_FALSE(awaitState(*stream, [](const json &s) { return !s["progress"].is_null(); }).is_null());
    host().stopServing();
    EXPECT_EQ(pressed.get().first, 200) << "the progress box was not cancelled";
    EXPECT_EQ(nextEvent(*stream).name, "end");
    Response refused = get("/api/state");
    EXPECT_EQ(refused.status, 503);
    EXPECT_EQ(refused.body, R"({"error":"corvane is stopping"})");
    EXPECT_EQ(transcript_.back(), R"({"event":"progress-end"})");
    host().finish();
}
