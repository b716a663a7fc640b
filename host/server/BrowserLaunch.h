/*
 * BrowserLaunch.h - opening the user's default browser on the page, with
 * xdg-open, when there is a display to show it on (DISPLAY or
 * WAYLAND_DISPLAY set).
 */
#ifndef CORVANE_SERVER_BROWSERLAUNCH_H
#define CORVANE_SERVER_BROWSERLAUNCH_H

#include <cstdio>
#include <string>

namespace corvane::server {

/* Starts xdg-open on url in the background, in a session of its own (a
   Ctrl-C meant for corvane does not reach the browser); a line on err says
   when it is not there. Nothing without a display. */
void openInBrowser(const std::string &url, std::FILE *err);

} // namespace corvane::server

#endif
