/*
 * ScriptedUi.h - the user-interface backend for tests and batch use:
 * queued answers, a chosen cancel point and a transcript of every event.
 */
#ifndef CORVANE_HOST_SCRIPTEDUI_H
#define CORVANE_HOST_SCRIPTEDUI_H

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "Transcript.h"
#include "UserInterface.h"

namespace corvane::host {

class ScriptedUi : public UserInterface {
public:
    /* Answers for questions (yes/no and question boxes), used in order. */
    void queueAnswer(bool yes);
    /* The answer once the queue is empty (default: no). */
    void setDefaultAnswer(bool yes);
    /* Answers for file choosers, in order; nothing = the user cancels. When
       the queue is empty the chooser is cancelled. */
    void queueFile(std::optional<std::string> path);
    /* Cancel at the first progress check at or above percent (only in a box
       that shows a Cancel button). */
    void cancelAtPercent(int percent);

    const std::vector<UiEvent> &transcript() const { return events_; }
    /* Texts of the error boxes and of the message boxes, in order. */
    std::vector<std::string> errors() const;
    std::vector<std::string> messages() const;
    /* Forgets the events and progress checks so far: a backend that serves
       many runs (a fuzz harness's, millions of loads) keeps only the last. */
    void clearTranscript()
    {
        events_.clear();
        checks_.clear();
    }
    /* Drops the answers not used yet, so a new run starts from its own. */
    void clearAnswers() { answers_.clear(); }
    /* Percents passed to progress checks, in order. */
    const std::vector<int> &progressChecks() const { return checks_; }
    /* A progress box is up. */
    bool progressUp() const { return progressUp_; }

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
    std::deque<bool> answers_;
    bool defaultAnswer_ = false;
    std::deque<std::optional<std::string>> files_;
    std::optional<int> cancelAt_;
    bool progressUp_ = false;
    bool progressCancel_ = false;
    bool cancelFired_ = false; /* the open box's Cancel was pressed */
    std::vector<UiEvent> events_;
    std::vector<int> checks_;
};

} // namespace corvane::host

#endif
