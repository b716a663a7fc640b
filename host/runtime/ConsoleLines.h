/*
 * ConsoleLines.h - standard error as the command-line backends write it:
 * lines of text as the add-on wrote them, and a one-line progress bar kept
 * below them, drawn only on a terminal and when not quiet.
 */
#ifndef CORVANE_HOST_CONSOLELINES_H
#define CORVANE_HOST_CONSOLELINES_H

#include <cstdio>
#include <string>
#include <string_view>

namespace corvane::host {

class ConsoleLines {
public:
    ConsoleLines(std::FILE *err, bool quiet);
    ~ConsoleLines() { clearBar(); }
    ConsoleLines(const ConsoleLines &) = delete;
    ConsoleLines &operator=(const ConsoleLines &) = delete;

    std::FILE *stream() const { return err_; }
    /* Writes a line, keeping the bar below it. */
    void say(std::string_view text);
    /* "<question> -> yes" (or no): a question answered without a prompt. */
    void sayAnswered(std::string_view question, bool yes);
    /* A bar with the label at 0 percent; then drawBar moves it. */
    void startBar(std::string_view label);
    void drawBar(int percent);
    /* Removes the bar from the line. */
    void clearBar();

private:
    bool drawsBar() const;

    std::FILE *err_;
    bool quiet_;
    std::string label_;
    std::size_t barLength_ = 0; /* characters of the bar now on the line; 0 = none */
    int barPercent_ = 0;        /* the percent the bar shows */
};

} // namespace corvane::host

#endif
