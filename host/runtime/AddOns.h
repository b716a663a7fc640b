/*
 * AddOns.h - add-on hosting: loading add-on shared libraries, the loaders
 * they register, replaying a stored load, and quitting.
 */
#ifndef CORVANE_HOST_ADDONS_H
#define CORVANE_HOST_ADDONS_H

#include <span>
#include <string>
#include <vector>

#include "CvnAPI.h"
#include "DataModel.h"
#include "Expected.h"

namespace corvane::host {

/* A data loader registered with CvnUtilImportAddLoaderX. */
struct Loader {
    std::string name;
    std::string fileNameExtensions;
    DataLoaderCallback_pf callback = nullptr;
    DataLoaderSelectedCallback_pf selectedCallback = nullptr;
    LgIndex_t callbackVersion = 0;
    bool allowMultiFileSelection = false;
    LgIndex_t advancedOptions = 0;
};

/* The version CvnUtilGetCorvaneVersion reports (default 1010000, i.e.
   10.1-0-0); tests set older ones. */
void setHostVersion(LgIndex_t version);
LgIndex_t hostVersion();

/* Path of the Ordalis add-on built beside the running host. */
std::string defaultAddOnPath();
/* dlopen()s the library and calls its InitCvnAddOn113. The error says what
   went wrong (missing file, no entry point). */
Expected<void> loadAddOn(const std::string &path);

const std::vector<Loader> &loaders();
/* The loader registered under name (case ignored), or nullptr. */
const Loader *findLoader(const std::string &name);

/* Calls the loader's replay callback with the strings as its instruction
   list, as a host replaying a layout does; the callback's result. */
Expected<bool> replayLoad(const std::string &loaderName, const std::vector<std::string> &strings);
/* The instruction strings stored with the newest of the data sets loaded
   through the loader (name case ignored): what the loader-selected callback
   gets as those of the previous load. Empty when there is none. */
std::vector<std::string> lastInstructions(std::span<const DataSet> sets,
                                          const std::string &loaderName);
/* Calls the loader's loader-selected callback with the previous strings. */
Expected<void> selectLoader(const std::string &loaderName,
                            const std::vector<std::string> &previous);

/* Asks every quit query; when all agree, runs the state-change callbacks
   with StateChange_Quit and returns true. */
bool quit();
/* Forgets loaders and callbacks and unloads add-ons (tests). */
void resetAddOns();

} // namespace corvane::host

#endif
