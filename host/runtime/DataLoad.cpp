/*
 * DataLoad.cpp - the data-load bracket (CvnUtilDataLoadStart and
 * CvnUtilDataLoadFinishX) and the loader instructions stored with the data
 * set of a load (CvnUtilImportSetLoaderInstr).
 */
#include <fmt/format.h>

#include "DataSession.h"
#include "Handles.h"
#include "UserInterface.h"

namespace detail = corvane::host::detail;

extern "C" {

/* Opens a load; nested starts count, and only the outermost one forgets the
   data set of the previous load. */
Boolean_t CvnUtilDataLoadStart(void)
{
    detail::DataSession &session = detail::dataSession();
    if (session.openLoads++ == 0)
        session.current.reset();
    return TRUE;
}

/* Closes a load. An integer "InitialPlotType" goes to the data set created
   in it, if any. FALSE when no load was open, and when the outermost load
   made a data set without zones: such a data set is no data at all (its
   zones could not be made), so it is dropped with an error box rather than
   kept as if the file had been loaded. */
Boolean_t CvnUtilDataLoadFinishX(ArgList_s *ArgList)
{
    detail::DataSession &session = detail::dataSession();
    if (session.openLoads == 0)
        return FALSE;
    corvane::host::DataSet *set = detail::currentDataSet();
    if (set && ArgList) {
        if (const ArgList_s::Arg *arg = ArgList->find("InitialPlotType"))
            if (const LgIndex_t *plotType = std::get_if<LgIndex_t>(&arg->value))
                set->initialPlotType = static_cast<int>(*plotType);
    }
    if (--session.openLoads > 0)
        return TRUE;
    bool empty = set && set->zones.empty();
    if (empty) {
        corvane::host::userInterface().error(fmt::format(
            "The data set \"{}\" has no zones: the load is not kept.", set->title));
        session.sets.erase(session.sets.begin() + static_cast<std::ptrdiff_t>(*session.current));
    }
    session.current.reset();
    return empty ? FALSE : TRUE;
}

/* Keeps a copy of Instructions with the data set of the open load. FALSE,
   with the reason kept for CvnUtilPostLastErrorMessage, when there is no
   such data set or no list. */
Boolean_t CvnUtilImportSetLoaderInstr(const char *LoaderName, const StringList_s *Instructions)
{
    detail::DataSession &session = detail::dataSession();
    session.lastError.clear();
    corvane::host::DataSet *set = detail::currentDataSet();
    if (!set || !Instructions) {
        session.lastError = fmt::format("Cannot store the loader instructions of \"{}\": {}",
                                        LoaderName ? LoaderName : "",
                                        set ? "no instruction list was given"
                                            : "no data set was created in the open data load");
        return FALSE;
    }
    set->loaderInstructions =
        corvane::host::LoaderInstructions{LoaderName ? LoaderName : "", Instructions->items};
    return TRUE;
}

} // extern "C"
