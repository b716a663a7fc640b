/*
 * fake_addon.cpp - the smallest add-on the host tests load: it refuses a
 * host older than 9.0, registers one loader that makes a one-variable data
 * set, asks the user before the host quits and says so when it does.
 */
#include "CvnAPI.h"

namespace {

/* Loads the values 1, 2, 3 into a data set titled by the first string. */
Boolean_t loadFake(StringList_s *instructions, long)
{
    CvnUtilDataLoadStart();
    char *title = CvnUtilStringListGetString(instructions, 1);
    StringList_s *vars = CvnUtilStringListAlloc();
    CvnUtilStringListAppendString(vars, "Fake value");
    ArgList_s *args = CvnUtilArgListAlloc();
    CvnUtilArgListAppendString(args, "LoaderName", "Fake Loader");
    CvnUtilArgListAppendString(args, "DataSetTitle", title ? title : "");
    CvnUtilArgListAppendStringList(args, "VarNames", vars);
    const FieldDataType_e types[] = {FieldDataType_Double};
    Boolean_t ok = CvnUtilDataSetCreateX(args) &&
                   CvnUtilDataSetAddZone("Fake zone", 3, 1, 1, ZoneType_Ordered, types) &&
                   CvnUtilImportSetLoaderInstr("Fake Loader", instructions);
    for (LgIndex_t p = 1; ok && p <= 3; ++p)
        CvnUtilDataValueSetByRef(CvnUtilDataValueGetRef(1, 1), p, static_cast<double>(p));
    CvnUtilArgListDealloc(&args);
    args = CvnUtilArgListAlloc();
    CvnUtilArgListAppendInt(args, "InitialPlotType", PlotType_XYLine);
    ok = CvnUtilDataLoadFinishX(args) && ok;
    CvnUtilArgListDealloc(&args);
    CvnUtilStringListDealloc(&vars);
    CvnUtilStringDealloc(&title);
    return ok;
}

Boolean_t mayQuit(void)
{
    return CvnUtilDialogMessageBox("Let Corvane quit?", MessageBox_YesNo);
}

void stateChanged(StateChange_e change, long)
{
    if (change == StateChange_Quit)
        CvnUtilDialogMessageBox("Fake add-on: quitting", MessageBox_Information);
}

} // namespace

extern "C" __attribute__((visibility("default"))) void InitCvnAddOn113(void)
{
    if (CvnUtilGetCorvaneVersion() < 900000) {
        CvnUtilDialogErrMsg("Fake Loader requires Corvane version 9.0-0-0 or greater");
        return;
    }
    CvnUtilAddOnRegister(100, "Fake Loader", "V1.0", "Tests");
    CvnUtilStateChangeAddCallback(stateChanged);
    ArgList_s *args = CvnUtilArgListAlloc();
    CvnUtilArgListAppendString(args, "LoaderName", "Fake Loader");
    CvnUtilArgListAppendString(args, "FileNameExtensions", "*.fake");
    CvnUtilArgListAppendFunction(args, "LoaderCallback", reinterpret_cast<const void *>(&loadFake));
    CvnUtilImportAddLoaderX(args);
    CvnUtilArgListDealloc(&args);
    CvnUtilQuitAddQueryCallback(mayQuit);
}
