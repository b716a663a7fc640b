/*
 * FiltersDialog.h - the general filters dialog ("General Filters", dialog
 * 6): comment lines, lines holding a keyword, ignored character columns and
 * lines, and the value of blank cells, for every line of the data file.
 */
#ifndef TW_FILTERSDIALOG_H
#define TW_FILTERSDIALOG_H

#include "CvnAPI.h"
#include "NumList.h"

namespace corvane::cvnutildataio {

extern LgIndex_t Dialog6Manager; /* host dialog id; CVNGUI_BAD_ID until built */

/* Creates the modal dialog with its controls once; later calls do nothing.
   Its init shows the current set's filters, keeps a copy of them for Cancel
   to restore and takes the add-on lock, which OK (when it closes the
   dialog) and Cancel give back. */
void BuildDialog6(LgIndex_t ParentDialogID);
/* Empties List and reads the text field's number list into it; when the
   text is no list, shows the reader's message (if it gave one) and returns
   false, List holding the ranges read before the error. */
bool TextFieldGetNumList(LgIndex_t TextFieldID, TW_NumList_s *List);
/* Shows List in the text field, without brackets ("1-5,7,10-end"). */
void TextFieldSetNumList(LgIndex_t TextFieldID, const TW_NumList_s *List);
/* Makes each field sensitive while its toggle is on; the blank-cell toggle
   only for semicolon or comma delimited data, and its field only when the
   toggle is also on. */
void RefreshDialog6Sensitivities();

} // namespace corvane::cvnutildataio

#endif
