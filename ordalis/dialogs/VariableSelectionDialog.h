/*
 * VariableSelectionDialog.h - the variable selection dialog ("Variables to
 * load", dialog 7): which variables of the scanned data set are loaded,
 * kept as the current instruction set's set of variables to load.
 */
#ifndef TW_VARIABLESELECTIONDIALOG_H
#define TW_VARIABLESELECTIONDIALOG_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

extern LgIndex_t Dialog7Manager; /* host dialog id; CVNGUI_BAD_ID until built */

/* Creates the modal dialog once; later calls do nothing. */
void BuildDialog7(LgIndex_t ParentDialogID);
/* Clears Set; then, only when both lists hold items, adds the 1-based
   position of each loaded name, in list order: the first variable of that
   name among the entered names when dialog 4 reads "Enter Variable
   Names", else among the scanned data set's variables. So nothing skipped
   leaves Set empty (all variables). */
void GetLoadedVarsSet(Set_s *Set);
/* Shows the summary of Set beside "Variables Loaded:": "All" when empty,
   else its members in increasing order joined by ",", at most ten, with
   "..." after the tenth (",..." when more members follow). */
void PrintVarsLoaded(const Set_s *Set);
/* Appends the source list's selected items, in selection order, to the
   destination list and deletes them from the source. */
void MoveVarItems(LgIndex_t SourceListID, LgIndex_t DestListID);
/* "Move All" buttons when their source list has items, "Move" buttons
   when their source list has a selection. */
void UpdateDialog7Sensitivities();

} // namespace corvane::cvnutildataio

#endif
