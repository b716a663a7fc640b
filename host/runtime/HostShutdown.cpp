/*
 * HostShutdown.cpp - the end of a host session.
 */
#include "HostShutdown.h"

#include <memory>

#include "AddOns.h"
#include "Gui.h"
#include "ScriptedUi.h"
#include "UserInterface.h"

namespace corvane::host {

void shutDown()
{
    {
        ScopedUserInterface quiet(std::make_shared<ScriptedUi>());
        gui::closeAllDialogs();
    }
    quit();
    resetAddOns();
    gui::resetGui();
}

} // namespace corvane::host
