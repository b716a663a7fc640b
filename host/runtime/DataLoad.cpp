/*
 * DataLoad.cpp - the data-load bracket (CvnUtilDataLoadStart and
 * CvnUtilDataLoadFinishX) and the loader instructions stored with the data
 * set of a load (CvnUtilImportSetLoaderInstr).
 */
#include <fmt/format.h>

#include "DataSession.h"
#include "Handles.h"

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
   in it, if any. FALSE when no load was open. */
Boolean_t CvnUtilDataLoadFinishX(ArgList_s *ArgList)
{
    detail::DataSession &session = detail::dataSession();
    if (session.openLoads == 0)
        return FALSE;
    if (corvane::host::DataSet *set = detail::currentDataSet(); set && ArgList) {
        if (const ArgList_s::Arg *arg = ArgList->find("InitialPlotType"))
            if (const LgIndex_t *plotType = std::get_if<LgIndex_t>(&arg->value))
                set->initialPlotType = static_cast<int>(*plotType);
    }
    if (--session.openLoads == 0)
        session.current.reset();
    return TRUE;
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
