/*
 * BrowserUi.h - the user-interface backend of the browser front end.
 *
 * Error, message and question boxes and file choosers become the state's
 * "box" and block the user-interface thread (running reads meanwhile) until
 * the page answers them; progress boxes become "progress", whose Cancel the
 * page presses; the please-wait indicator becomes "busy"; a help request
 * goes to every page as an event. Every box shown is told to the
 * transcript with its answer, as corvane load records them.
 *
 * The UserInterface calls come on the user-interface thread; answer(),
 * cancelProgress() and the queries may come from any thread. Once stopped,
 * a waiting box is answered at once as cancelled or No (OK for an error or
 * a message), later boxes too, and a progress box with Cancel is cancelled.
 */
#ifndef CORVANE_SERVER_BROWSERUI_H
#define CORVANE_SERVER_BROWSERUI_H

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <variant>

#include <nlohmann/json.hpp>

#include "Transcript.h"
#include "UiThread.h"
#include "UserInterface.h"

namespace corvane::server {

/* The page's answer to a box: Yes/No (OK is true), or the file chosen
   (nothing: cancelled). */
using BoxReply = std::variant<bool, std::optional<std::string>>;

enum class ReplyResult { taken, notWaiting, wrongKind };

class BrowserUi : public host::UserInterface {
public:
    struct Hooks {
        std::function<void()> changed;                       /* box, progress or busy changed */
        std::function<void(const std::string &)> help;       /* a page URL to open */
        std::function<void(const host::UiEvent &)> transcript; /* may be empty */
    };

    BrowserUi(UiThread &thread, Hooks hooks);

    void error(std::string_view text) override;
    bool message(MessageBoxType_e type, std::string_view text) override;
    void progressLaunch(std::string_view label, bool showCancel) override;
    bool progressCheck(int percent) override;
    void progressDrop() override;
    std::optional<std::string> chooseFile(SelectFileOption_e option, std::string_view title,
                                          std::string_view defaultName,
                                          std::string_view filter) override;
    void help(std::string_view page) override;
    void pleaseWait(std::string_view text, bool on) override;

    /* The page answers box id. */
    ReplyResult answer(int id, const BoxReply &reply);
    /* Presses the progress box's Cancel; false when no box with a Cancel
       button is up. */
    bool cancelProgress();
    bool boxWaiting() const;
    /* The name a waiting file chooser proposes, or nothing. */
    std::optional<std::string> proposedName() const;
    void stop();

    /* The state's "box", "progress" and "busy" (null when there is none). */
    nlohmann::ordered_json boxJson() const;
    nlohmann::ordered_json progressJson() const;
    nlohmann::ordered_json busyJson() const;

private:
    struct Box {
        int id = 0;
        std::string kind; /* error, warning, information, question, file */
        std::string text; /* boxes but the file chooser */
        std::string mode; /* file chooser: read or write */
        std::string title;
        std::string defaultName;
        std::string filter;
    };
    struct Progress {
        std::string label;
        int percent = 0;
        bool cancel = false;
        bool cancelPressed = false;
    };

    static Box messageBox(std::string kind, std::string_view text);
    /* Shows the box and waits for its reply; the reply given when stopped
       is fallback. */
    BoxReply ask(Box box, const BoxReply &fallback);
    void tell(host::UiEvent event) const;

    UiThread &thread_;
    Hooks hooks_;
    mutable std::mutex mutex_;
    int lastBoxId_ = 0;
    std::optional<Box> box_;
    std::optional<BoxReply> reply_;
    std::optional<Progress> progress_;
    std::optional<std::string> busy_;
    bool stopped_ = false;
};

} // namespace corvane::server

#endif
