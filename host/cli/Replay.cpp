/*
 * Replay.cpp - replaying stored loads in order.
 */
#include "Replay.h"

#include <fmt/format.h>

#include "AddOns.h"

namespace corvane::cli {

bool replayAll(const std::vector<host::LoaderInstructions> &loads,
               const std::function<long()> &told, std::FILE *err)
{
    for (const auto &load : loads) {
        long before = told();
        auto result = host::replayLoad(load.loader, load.strings);
        if (!result) {
            fmt::print(err, "corvane: {}\n", result.error());
            return false;
        }
        if (!*result) {
            if (told() == before)
                fmt::print(err, "corvane: the loader \"{}\" failed without a message\n",
                           load.loader);
            return false;
        }
    }
    return true;
}

host::ConsoleOptions consoleOptions(const Command &cmd, const Io &io)
{
    host::ConsoleOptions options;
    options.answers = cmd.answers;
    options.policy = cmd.policy;
    options.cancelAt = cmd.cancelAt;
    options.quiet = cmd.quiet;
    options.in = io.in;
    options.err = io.err;
    return options;
}

bool loadCommandAddOn(const Command &cmd, const Io &io)
{
    std::string path = cmd.addOnPath.empty() ? host::defaultAddOnPath() : cmd.addOnPath;
    if (auto loaded = host::loadAddOn(path); !loaded) {
        fmt::print(io.err, "corvane: {}\n", loaded.error());
        host::resetAddOns();
        return false;
    }
    return true;
}

} // namespace corvane::cli
