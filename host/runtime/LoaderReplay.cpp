/*
 * LoaderReplay.cpp - calling a registered loader as the host does: replaying
 * stored loader instructions, and the user picking the loader.
 */
#include <fmt/format.h>

#include "AddOns.h"
#include "DataSession.h"
#include "Handles.h"

namespace corvane::host {

namespace {

Unexpected noLoader(const std::string &name)
{
    return unexpected(fmt::format("no loader named \"{}\" is registered", name));
}

} // namespace

Expected<bool> replayLoad(const std::string &loaderName, const std::vector<std::string> &strings)
{
    const Loader *loader = findLoader(loaderName);
    if (!loader)
        return noLoader(loaderName);
    /* Copy the callback first: the loader may register loaders while it runs. */
    const DataLoaderCallback_pf callback = loader->callback;
    StringList_s instructions{strings};
    return callback(&instructions, 0) != FALSE;
}

std::vector<std::string> lastInstructions(std::span<const DataSet> sets,
                                          const std::string &loaderName)
{
    for (auto set = sets.rbegin(); set != sets.rend(); ++set)
        if (set->loaderInstructions && detail::sameName(set->loaderInstructions->loader, loaderName))
            return set->loaderInstructions->strings;
    return {};
}

Expected<void> selectLoader(const std::string &loaderName, const std::vector<std::string> &previous)
{
    const Loader *loader = findLoader(loaderName);
    if (!loader)
        return noLoader(loaderName);
    if (!loader->selectedCallback)
        return unexpected(
            fmt::format("the loader \"{}\" has no loader-selected callback", loader->name));
    const DataLoaderSelectedCallback_pf callback = loader->selectedCallback;
    StringList_s instructions{previous};
    callback(&instructions, 0, 0);
    return {};
}

} // namespace corvane::host
