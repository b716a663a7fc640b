/*
 * DialogText.h - text output of the dialogs into multi-line text controls,
 * under the length limit of hosts whose text controls are small.
 */
#ifndef TW_DIALOGTEXT_H
#define TW_DIALOGTEXT_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

/* Longest text a limited host's text control holds. */
#define TW_LIMITED_TEXT_LENGTH 32000

/* Appends Text to the multi-line text control TextID. On a host with small
   text controls (IsWin95) a piece that would make the text longer than
   32000 characters is left out; later, shorter pieces may still fit. */
void TW_AppendText(LgIndex_t TextID, const char *Text);

} // namespace corvane::cvnutildataio

#endif
