/*
 * ScriptRunUi.h - the user-interface backend of a scripted dialog run.
 *
 * Errors and messages go to standard error as with corvane load, questions
 * with their answer ("<question> -> yes"), and a progress bar is drawn on a
 * terminal unless quiet. Questions, file choosers and Cancel points take the
 * answers the script queued, in order. A question or file chooser with no
 * queued answer is answered No or cancelled, so that the add-on's callback
 * ends normally, and is kept as the problem of the step that raised it.
 */
#ifndef CORVANE_CLI_SCRIPTRUNUI_H
#define CORVANE_CLI_SCRIPTRUNUI_H

#include <cstdio>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "ConsoleLines.h"
#include "Transcript.h"
#include "UserInterface.h"

namespace corvane::cli {

class ScriptRunUi : public host::UserInterface {
public:
    /* onEvent, when given, hears every box shown (the transcript). */
    ScriptRunUi(std::FILE *err, bool quiet, std::function<void(const host::UiEvent &)> onEvent);

    void queueAnswer(bool yes) { answers_.push_back(yes); }
    /* A path, or nothing to cancel the chooser. */
    void queueFile(std::optional<std::string> path) { files_.push_back(std::move(path)); }
    /* The next progress box with a Cancel button is cancelled at the first
       check at or above percent. */
    void queueCancelAt(int percent) { cancelPoints_.push_back(percent); }

    /* The text of the last error, message or question box shown. */
    const std::optional<std::string> &lastMessage() const { return lastMessage_; }
    /* The first box since the last call that nothing answered, in words;
       forgets it. */
    std::optional<std::string> takeProblem() { return std::exchange(problem_, std::nullopt); }

    void error(std::string_view text) override;
    bool message(MessageBoxType_e type, std::string_view text) override;
    void progressLaunch(std::string_view label, bool showCancel) override;
    bool progressCheck(int percent) override;
    void progressDrop() override;
    std::optional<std::string> chooseFile(SelectFileOption_e option, std::string_view title,
                                          std::string_view defaultName,
                                          std::string_view filter) override;
    void help(std::string_view page) override;

private:
    void emit(host::UiEvent event);
    void noteProblem(std::string problem);

    host::ConsoleLines lines_;
    std::function<void(const host::UiEvent &)> onEvent_;
    std::deque<bool> answers_;
    std::deque<std::optional<std::string>> files_;
    std::deque<int> cancelPoints_;
    std::optional<int> cancelAt_; /* of the progress box up */
    bool progressUp_ = false;
    bool cancelFired_ = false;
    std::optional<std::string> lastMessage_;
    std::optional<std::string> problem_;
};

} // namespace corvane::cli

#endif
