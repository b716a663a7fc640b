/*
 * LoaderCallbacks.h - the load routine every load ends in and the replay
 * callback the host calls.
 */
#ifndef TW_LOADERCALLBACKS_H
#define TW_LOADERCALLBACKS_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

/* Replays a stored load (the host's loader callback). */
Boolean_t LoaderCallback(StringList_s *Instructions, long ClientData);
/* Reads the instructions, scans the file, transfers it and stores the
   instructions with the new data set. */
Boolean_t internalLoaderCallback(StringList_s *Instructions, char CalledFromDialog);

} // namespace corvane::cvnutildataio

#endif
