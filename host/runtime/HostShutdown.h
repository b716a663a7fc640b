/*
 * HostShutdown.h - the end of a host session with an add-on loaded, for
 * every front end that runs one.
 */
#ifndef CORVANE_HOST_HOSTSHUTDOWN_H
#define CORVANE_HOST_HOSTSHUTDOWN_H

namespace corvane::host {

/* Ends the session as a user closing the host would: the dialogs still up
   close with their Cancel, top one first, quietly (a question it asks is
   answered No and shown nowhere, a file chooser is cancelled), so that the
   add-ons give back what their dialogs held; then the add-ons are asked to
   quit, unloaded, and the dialog toolkit forgets everything. */
void shutDown();

} // namespace corvane::host

#endif
