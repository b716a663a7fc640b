/*
 * ConsoleUi.h - the user-interface backend of the command line.
 *
 * Errors, warnings and information go to standard error exactly as the
 * add-on wrote them. A question takes, in order: the next queued answer;
 * else the policy; else, on a terminal, the user's answer at a prompt; else
 * No, with a line on standard error naming the option that answers Yes.
 * A progress bar with the box's label is drawn on standard error only when
 * it is a terminal and the UI is not quiet. While a progress box with a
 * Cancel button is up, Ctrl-C presses that Cancel.
 */
#ifndef CORVANE_HOST_CONSOLEUI_H
#define CORVANE_HOST_CONSOLEUI_H

#include <cstdio>
#include <deque>
#include <functional>
#include <optional>

#include "Transcript.h"
#include "UserInterface.h"

namespace corvane::host {

struct ConsoleOptions {
    std::deque<bool> answers;    /* answers in order (--answers) */
    std::optional<bool> policy;  /* answer to every other question (--yes/--no) */
    std::optional<int> cancelAt; /* press Cancel at the first check >= this percent */
    bool quiet = false;          /* no progress bar */
    /* Called with every event, in order (the transcript writer). */
    std::function<void(const UiEvent &)> onEvent;
    /* Where messages and the bar go; stdin/stderr by default (tests swap). */
    std::FILE *in = nullptr;
    std::FILE *err = nullptr;
};

class ConsoleUi : public UserInterface {
public:
    explicit ConsoleUi(ConsoleOptions options);
    ~ConsoleUi() override;

    void error(std::string_view text) override;
    bool message(MessageBoxType_e type, std::string_view text) override;
    void progressLaunch(std::string_view label, bool showCancel) override;
    bool progressCheck(int percent) override;
    void progressDrop() override;
    std::optional<std::string> chooseFile(SelectFileOption_e option, std::string_view title,
                                          std::string_view defaultName,
                                          std::string_view filter) override;
    void help(std::string_view page) override;

    /* How many times Cancel was pressed in a progress box so far. */
    long cancelsPressed() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace corvane::host

#endif
