/*
 * LoaderSelected.h - the callback the host calls when the user picks the
 * loader in its load menu: it opens the main import dialog.
 */
#ifndef TW_LOADERSELECTED_H
#define TW_LOADERSELECTED_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

/* Instructions holds those of the previous load through this loader, or
   is empty. */
void LoaderSelectedCallback(StringList_s *Instructions, char Flag, long ClientData);

} // namespace corvane::cvnutildataio

#endif
