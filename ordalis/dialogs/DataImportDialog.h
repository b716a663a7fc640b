/*
 * DataImportDialog.h - the data import dialog ("Data Import Instructions",
 * dialog 5): where the data starts and ends, point or block format, the
 * value delimiter, automatic or given dimensions and multiple zones of the
 * current instruction set.
 */
#ifndef TW_DATAIMPORTDIALOG_H
#define TW_DATAIMPORTDIALOG_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

extern LgIndex_t Dialog5Manager; /* host dialog id; CVNGUI_BAD_ID until built */

/* Creates the modal dialog with its controls once; later calls do nothing.
   Its init shows the current set and takes the add-on lock, which OK (when
   it closes the dialog) and Cancel give back. */
void BuildDialog5(LgIndex_t ParentDialogID);
/* Makes each label and field sensitive when the choices shown need it: the
   keyword or line of the chosen start and end, the sizes when they are
   given, the zone keyword for automatic point data split into zones, the
   width for fixed-width values. */
void RefreshDialog5Sensitivities();

} // namespace corvane::cvnutildataio

#endif
