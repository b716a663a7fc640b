/*
 * LoaderMenu.cpp - picking a loader from the load menu.
 */
#include "LoaderMenu.h"

#include <fmt/format.h>

#include "AddOns.h"
#include "DataModel.h"
#include "Gui.h"

namespace corvane::server {

host::Expected<void> LoaderMenu::pick(const std::string &loader)
{
    if (LgIndex_t dialog = host::gui::topDialog(); dialog != CVNGUI_BAD_ID)
        return host::unexpected(fmt::format("cannot open a loader while the dialog \"{}\" is up",
                                            host::gui::findDialog(dialog)->title));
    std::vector<std::string> previous = host::lastInstructions(host::finishedDataSets(), loader);
    if (previous.empty() && dataFile_)
        previous = {*dataFile_, ""};
    auto picked = host::selectLoader(loader, previous);
    if (picked)
        dataFile_.reset();
    return picked;
}

} // namespace corvane::server
