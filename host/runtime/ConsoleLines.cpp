/*
 * ConsoleLines.cpp - text lines and the progress bar on standard error.
 */
#include "ConsoleLines.h"

#include <fmt/format.h>
#include <unistd.h>

namespace corvane::host {

namespace {
constexpr int barWidth = 30;

/* These writes happen inside add-on callbacks: a stream that cannot be
   written loses the text rather than throw through the add-on. */
void put(std::FILE *stream, const std::string &text)
{
    std::fputs(text.c_str(), stream);
    std::fflush(stream);
}
} // namespace

ConsoleLines::ConsoleLines(std::FILE *err, bool quiet) : err_(err), quiet_(quiet) {}

bool ConsoleLines::drawsBar() const
{
    return !quiet_ && ::isatty(::fileno(err_)) == 1;
}

void ConsoleLines::clearBar()
{
    if (barLength_ == 0)
        return;
    put(err_, fmt::format("\r{}\r", std::string(barLength_, ' ')));
    barLength_ = 0;
}

void ConsoleLines::startBar(std::string_view label)
{
    clearBar();
    label_ = std::string(label);
    drawBar(0);
}

void ConsoleLines::drawBar(int percent)
{
    if (!drawsBar())
        return;
    int shown = percent < 0 ? 0 : percent > 100 ? 100 : percent;
    barPercent_ = shown;
    int filled = shown * barWidth / 100;
    std::string line = fmt::format("{} [{}{}] {:3d}%", label_, std::string(filled, '#'),
                                   std::string(barWidth - filled, '.'), shown);
    std::string padding(barLength_ > line.size() ? barLength_ - line.size() : 0, ' ');
    put(err_, fmt::format("\r{}{}", line, padding));
    barLength_ = line.size() + padding.size();
}

void ConsoleLines::say(std::string_view text)
{
    bool hadBar = barLength_ != 0;
    clearBar();
    put(err_, fmt::format("{}\n", text));
    if (hadBar)
        drawBar(barPercent_);
}

void ConsoleLines::sayAnswered(std::string_view question, bool yes)
{
    say(fmt::format("{} -> {}", question, yes ? "yes" : "no"));
}

} // namespace corvane::host
