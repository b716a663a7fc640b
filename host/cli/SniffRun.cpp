/*
 * SniffRun.cpp - one run of corvane sniff.
 */
#include "SniffRun.h"

#include <fmt/format.h>

#include "OutputFile.h"
#include "Sniff.h"

namespace corvane::cli {

int runSniff(const Command &cmd, const Io &io)
{
    auto proposal = inspect::sniffFile(cmd.dataFile, cmd.title);
    if (!proposal) {
        fmt::print(io.err, "corvane: {}\n", proposal.error());
        return exitFailure;
    }
    if (cmd.setOutput.empty()) {
        std::fputs(proposal->text.c_str(), io.out);
        std::fflush(io.out);
        return exitSuccess;
    }
    auto file = OutputFile::create(cmd.setOutput);
    if (!file) {
        fmt::print(io.err, "corvane: {}\n", file.error());
        return exitFailure;
    }
    std::fputs(proposal->text.c_str(), file->stream());
    if (auto done = file->commit(); !done) {
        fmt::print(io.err, "corvane: {}\n", done.error());
        return exitFailure;
    }
    for (const std::string &line : proposal->explanation)
        fmt::print(io.out, "{}\n", line);
    std::fflush(io.out);
    return exitSuccess;
}

bool useSniffedSet(Command &cmd, const Io &io)
{
    auto proposal = inspect::sniffFile(cmd.dataFile);
    if (!proposal) {
        fmt::print(io.err, "corvane: {}\n", proposal.error());
        return false;
    }
    cmd.instructions = std::move(proposal->text);
    return true;
}

} // namespace corvane::cli
