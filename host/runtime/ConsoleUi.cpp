/*
 * ConsoleUi.cpp - boxes on the command line: texts on standard error,
 * questions answered from the queue, the policy or a prompt, a one-line
 * progress bar, and Ctrl-C as the Cancel button of a progress box.
 */
#include "ConsoleUi.h"

#include <atomic>
#include <csignal>
#include <string>

#include <fmt/format.h>
#include <unistd.h>

#include "ConsoleLines.h"

namespace corvane::host {

namespace {

/* Set by SIGINT while a progress box with a Cancel button is up; cleared
   when such a box is launched. */
std::atomic<bool> interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free);

extern "C" void onInterrupt(int)
{
    interrupted.store(true);
}

bool isTerminal(std::FILE *stream)
{
    return ::isatty(::fileno(stream)) == 1;
}

bool isQuestion(MessageBoxType_e type)
{
    return type == MessageBox_Question || type == MessageBox_YesNo;
}

} // namespace

struct ConsoleUi::State {
    ConsoleOptions options;
    std::FILE *in;
    ConsoleLines lines;
    bool progressUp = false;
    bool progressCancel = false; /* the open box has a Cancel button */
    bool cancelFired = false;    /* its Cancel was pressed */
    long cancels = 0;            /* Cancel presses so far, in every box */
    bool handlerInstalled = false;
    struct sigaction previousHandler {};

    explicit State(ConsoleOptions opts)
        : options(std::move(opts)), in(options.in != nullptr ? options.in : stdin),
          lines(options.err != nullptr ? options.err : stderr, options.quiet)
    {
    }

    void emit(const UiEvent &event) const
    {
        if (options.onEvent)
            options.onEvent(event);
    }

    void installInterruptHandler()
    {
        struct sigaction action {};
        action.sa_handler = onInterrupt;
        sigemptyset(&action.sa_mask);
        interrupted.store(false);
        if (sigaction(SIGINT, &action, &previousHandler) == 0)
            handlerInstalled = true;
    }

    void restoreInterruptHandler()
    {
        if (!handlerInstalled)
            return;
        sigaction(SIGINT, &previousHandler, nullptr);
        handlerInstalled = false;
    }

    /* Reads the user's answer at a prompt: yes only for a line starting
       with y or Y. */
    bool prompt(std::string_view text)
    {
        lines.clearBar();
        std::FILE *err = lines.stream();
        std::fputs(fmt::format("{} [y/N] ", text).c_str(), err);
        std::fflush(err);
        std::string line;
        int c;
        while ((c = std::fgetc(in)) != EOF && c != '\n')
            line.push_back(static_cast<char>(c));
        if (c == EOF)
            std::fputs("\n", err);
        std::size_t first = line.find_first_not_of(" \t");
        return first != std::string::npos && (line[first] == 'y' || line[first] == 'Y');
    }
};

ConsoleUi::ConsoleUi(ConsoleOptions options) : state_(std::make_unique<State>(std::move(options))) {}

ConsoleUi::~ConsoleUi()
{
    state_->restoreInterruptHandler();
}

void ConsoleUi::error(std::string_view text)
{
    state_->lines.say(text);
    state_->emit({UiEvent::Kind::error, "", std::string(text), "", false});
}

bool ConsoleUi::message(MessageBoxType_e type, std::string_view text)
{
    State &s = *state_;
    bool answer = true;
    if (isQuestion(type)) {
        bool typed = false;
        bool guessed = false;
        if (!s.options.answers.empty()) {
            answer = s.options.answers.front();
            s.options.answers.pop_front();
        } else if (s.options.policy) {
            answer = *s.options.policy;
        } else if (isTerminal(s.in) && isTerminal(s.lines.stream())) {
            answer = s.prompt(text);
            typed = true;
        } else {
            answer = false;
            guessed = true;
        }
        if (!typed)
            s.lines.sayAnswered(text, answer);
        if (guessed)
            s.lines.say(
                "corvane: answered No to the question above; --yes or --answers would answer Yes");
    } else {
        s.lines.say(text);
    }
    std::string answerText = isQuestion(type) ? (answer ? "yes" : "no") : "ok";
    s.emit({UiEvent::Kind::message, std::string(messageTypeName(type)), std::string(text),
            answerText, false});
    return answer;
}

void ConsoleUi::progressLaunch(std::string_view label, bool showCancel)
{
    State &s = *state_;
    s.restoreInterruptHandler();
    s.progressUp = true;
    s.progressCancel = showCancel;
    s.cancelFired = false;
    if (showCancel)
        s.installInterruptHandler();
    s.lines.startBar(label);
    s.emit({UiEvent::Kind::progress, "", std::string(label), "", showCancel});
}

bool ConsoleUi::progressCheck(int percent)
{
    State &s = *state_;
    if (!s.progressUp)
        return true;
    s.lines.drawBar(percent);
    if (!s.progressCancel)
        return true;
    if (!s.cancelFired &&
        (interrupted.load() || (s.options.cancelAt && percent >= *s.options.cancelAt))) {
        s.cancelFired = true;
        ++s.cancels;
    }
    return !s.cancelFired;
}

long ConsoleUi::cancelsPressed() const
{
    return state_->cancels;
}

void ConsoleUi::progressDrop()
{
    State &s = *state_;
    s.lines.clearBar();
    s.restoreInterruptHandler();
    s.progressUp = false;
    s.progressCancel = false;
    s.cancelFired = false;
    s.emit({UiEvent::Kind::progressEnd, "", "", "", false});
}

std::optional<std::string> ConsoleUi::chooseFile(SelectFileOption_e /*option*/,
                                                 std::string_view title,
                                                 std::string_view /*defaultName*/,
                                                 std::string_view /*filter*/)
{
    state_->lines.say(
        fmt::format("corvane: no file chooser on the command line; \"{}\" cancelled", title));
    state_->emit({UiEvent::Kind::file, "", std::string(title), "", false});
    return std::nullopt;
}

void ConsoleUi::help(std::string_view page)
{
    state_->lines.say(fmt::format("corvane: help page {}", page));
    state_->emit({UiEvent::Kind::help, "", std::string(page), "", false});
}

} // namespace corvane::host
