/*
 * Transcript.h - the record of every user-interface event, in order.
 */
#ifndef CORVANE_HOST_TRANSCRIPT_H
#define CORVANE_HOST_TRANSCRIPT_H

#include <string>
#include <vector>

namespace corvane::host {

/* One box the host showed. */
struct UiEvent {
    enum class Kind { error, message, progress, progressEnd, file, help };
    Kind kind;
    std::string type;   /* message: "warning", "information", "question", "yesno", "error" */
    std::string text;   /* error/message text, progress label, file-chooser title, help page */
    std::string answer; /* message: "yes"/"no" (questions) or "ok"; file: the path or "" */
    bool cancel = false; /* progress: the box had a Cancel button */

    bool operator==(const UiEvent &) const = default;
};

/* The event as one JSON Lines record (no newline):
   {"event":"error","text":...}, {"event":"message","type","text","answer"},
   {"event":"progress","label","cancel"}, {"event":"progress-end"},
   {"event":"file","title","answer"}, {"event":"help","page"}. */
std::string toJsonLine(const UiEvent &event);

} // namespace corvane::host

#endif
