/*
 * HomeDirectory.cpp - where the host keeps its per-user files:
 * $CORVANE_HOME, else the user's data folder ($XDG_DATA_HOME/corvane, else
 * $HOME/.local/share/corvane).
 */
#include <cstdlib>
#include <string>

#include "HostMemory.h"

namespace {
const char *nonEmptyEnv(const char *name)
{
    const char *value = std::getenv(name);
    return value != nullptr && *value != '\0' ? value : nullptr;
}

std::string homeDirectory()
{
    if (const char *home = nonEmptyEnv("CORVANE_HOME"))
        return home;
    if (const char *data = nonEmptyEnv("XDG_DATA_HOME"))
        return std::string(data) + "/corvane";
    if (const char *user = nonEmptyEnv("HOME"))
        return std::string(user) + "/.local/share/corvane";
    return ".corvane";
}
} // namespace

extern "C" char *CvnUtilCorvaneGetHomeDirectory(void)
{
    return corvane::host::newHostString(homeDirectory(), "CorvaneGetHomeDirectory");
}
