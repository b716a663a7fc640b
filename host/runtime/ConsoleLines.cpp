/*
 * ConsoleLines.cpp - text lines and the progress bar on standard error.
 */
#include "ConsoleLines.h"

#include <fmt/format.h>
#include <unistd.h>

namespace corvane::host {

namespace {
constexpr int barWidth = 30;
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
    fmt::print(err_, "\r{}\r", std::string(barLength_, ' '));
    std::fflush(err_);
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
    fmt::print(err_, "\r{}{}", line, padding);
    std::fflush(err_);
    barLength_ = line.size() + padding.size();
}

void ConsoleLines::say(std::string_view text)
{
    bool hadBar = barLength_ != 0;
    clearBar();
    fmt::print(err_, "{}\n", text);
    std::fflush(err_);
    if (hadBar)
        drawBar(barPercent_);
}

void ConsoleLines::sayAnswered(std::string_view question, bool yes)
{
    say(fmt::format("{} -> {}", question, yes ? "yes" : "no"));
}

} // namespace corvane::host
