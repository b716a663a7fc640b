/*
 * AddOnRegistry.h - what add-ons registered with the host: their records,
 * state-change and quit-query callbacks, and the reset hooks that
 * resetAddOns() runs. Internal to the host runtime.
 */
#ifndef CORVANE_HOST_ADDONREGISTRY_H
#define CORVANE_HOST_ADDONREGISTRY_H

#include <string>
#include <vector>

#include "CvnAPI.h"

/* One CvnUtilAddOnRegister call; its address is the add-on id. */
struct AddOn_s {
    int apiLevel = 0;
    std::string name;
    std::string version;
    std::string author;
};

namespace corvane::host::detail {

struct AddOnCallbacks {
    std::vector<StateChangeCallback_pf> stateChange; /* in registration order */
    std::vector<QueryQuitCallback_pf> quitQuery;     /* in registration order */
};

AddOnCallbacks &addOnCallbacks();

/* Forget what add-ons registered (resetAddOns). */
void resetAddOnRecords();
void resetAddOnCallbacks();
void resetLoaders();

} // namespace corvane::host::detail

#endif
