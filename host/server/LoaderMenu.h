/*
 * LoaderMenu.h - the host's File > Load Data... menu: picking a loader
 * calls its loader-selected callback with the instructions of the last
 * load through it. A data file given on the command line stands in for
 * them the first time: the callback gets [DATAFILE, ""], so that the
 * loader's dialog comes up with that file chosen.
 */
#ifndef CORVANE_SERVER_LOADERMENU_H
#define CORVANE_SERVER_LOADERMENU_H

#include <optional>
#include <string>

#include "Expected.h"

namespace corvane::server {

class LoaderMenu {
public:
    explicit LoaderMenu(std::optional<std::string> dataFile) : dataFile_(std::move(dataFile)) {}

    /* The user picks the loader (on the user-interface thread); refused
       while a dialog is up or when no such loader takes a pick. */
    host::Expected<void> pick(const std::string &loader);

private:
    std::optional<std::string> dataFile_; /* until the first pick */
};

} // namespace corvane::server

#endif
