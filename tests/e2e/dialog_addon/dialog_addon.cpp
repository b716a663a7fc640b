/*
 * dialog_addon.cpp - a small add-on with a loader dialog, for the scripted
 * dialog runs. Picking "Dialog Test Loader" opens "Test Loader":
 *
 *   Data file: <value label>     [Browse...]    (a file chooser)
 *   Title: <field>
 *   Points:                                     (a whole number from 1 to 5)
 *   <field>
 *   +- Variables ------------+
 *   | <list x, y, z>         |  [Clear title]   (asks first)
 *   |                        |  [Options...]    (a nested dialog)
 *   +------------------------+  [x] Lock title  (makes Clear title insensitive)
 *
 * OK loads a data set through the same code as the replay callback: the
 * selected variables in selection order, Points points each, variable N
 * (its place in the list) holding N, 2N, 3N...; a progress box with Cancel
 * runs over the points. The instructions are the data file, title, points,
 * variables and delimiter. The dialog shows those of the previous load when
 * the loader is picked again. Quitting is refused while the dialog is up.
 */
#include <cstdlib>
#include <string>
#include <vector>

#include "CvnAPI.h"

namespace {

const char *const loaderName = "Dialog Test Loader";

LgIndex_t mainDialog = CVNGUI_BAD_ID;
LgIndex_t optionsDialog = CVNGUI_BAD_ID;
LgIndex_t fileLabel, titleField, pointsField, variablesList, clearButton;
LgIndex_t delimiterMenu;
std::string fileName;
std::string delimiter = "Auto";
/* The instructions of the previous load, as the host handed them over. */
StringList_s *previous = nullptr;

std::string stringAt(StringList_s *list, LgIndex_t index)
{
    char *text = CvnUtilStringListGetString(list, index);
    std::string copy = text != nullptr ? text : "";
    CvnUtilStringDealloc(&text);
    return copy;
}

std::vector<std::string> split(const std::string &text)
{
    std::vector<std::string> parts;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t comma = text.find(',', start);
        parts.push_back(text.substr(start, comma - start));
        start = comma == std::string::npos ? text.size() : comma + 1;
    }
    return parts;
}

/* Loads the data set the instructions describe; FALSE when they are wrong
   or the user cancelled. */
Boolean_t load(StringList_s *instructions)
{
    if (CvnUtilStringListGetCount(instructions) != 5) {
        CvnUtilDialogErrMsg("Dialog Test Loader: five instruction strings expected");
        return FALSE;
    }
    std::string title = stringAt(instructions, 2);
    LgIndex_t points = std::atol(stringAt(instructions, 3).c_str());
    std::vector<std::string> names = split(stringAt(instructions, 4));
    const std::vector<std::string> all = {"x", "y", "z"};
    std::vector<double> values;
    CvnUtilDialogLaunchPercentDone("Loading...", TRUE);
    for (LgIndex_t p = 1; p <= points; ++p) {
        if (!CvnUtilDialogCheckPercentDone(static_cast<int>(100 * p / points))) {
            CvnUtilDialogDropPercentDone();
            return FALSE;
        }
        for (const std::string &name : names)
            for (std::size_t v = 0; v < all.size(); ++v)
                if (all[v] == name)
                    values.push_back(static_cast<double>(p * static_cast<LgIndex_t>(v + 1)));
    }
    CvnUtilDialogDropPercentDone();

    CvnUtilDataLoadStart();
    StringList_s *vars = CvnUtilStringListAlloc();
    for (const std::string &name : names)
        CvnUtilStringListAppendString(vars, name.c_str());
    ArgList_s *args = CvnUtilArgListAlloc();
    CvnUtilArgListAppendString(args, "LoaderName", loaderName);
    CvnUtilArgListAppendString(args, "DataSetTitle", title.c_str());
    CvnUtilArgListAppendStringList(args, "VarNames", vars);
    std::vector<FieldDataType_e> types(names.size(), FieldDataType_Double);
    Boolean_t ok = CvnUtilDataSetCreateX(args) &&
                   CvnUtilDataSetAddZone("Zone 1", points, 1, 1, ZoneType_Ordered, types.data()) &&
                   CvnUtilImportSetLoaderInstr(loaderName, instructions);
    for (std::size_t i = 0; ok && i < values.size(); ++i) {
        auto point = static_cast<LgIndex_t>(i / names.size()) + 1;
        auto var = static_cast<EntIndex_t>(i % names.size()) + 1;
        CvnUtilDataValueSetByRef(CvnUtilDataValueGetRef(1, var), point, values[i]);
    }
    CvnUtilArgListDealloc(&args);
    CvnUtilStringListDealloc(&vars);
    return CvnUtilDataLoadFinishX(nullptr) && ok;
}

Boolean_t replay(StringList_s *instructions, long)
{
    return load(instructions);
}

void onBrowse()
{
    char *chosen = nullptr;
    if (CvnUtilDialogGetFileName(SelectFileOption_ReadSingleFile, &chosen, "Data file", "",
                                 "*.dat")) {
        fileName = chosen;
        CvnGUILabelSetText(fileLabel, chosen);
    }
    CvnUtilStringDealloc(&chosen);
}

LgIndex_t onText(const char *)
{
    return TRUE;
}

void onClear()
{
    if (CvnUtilDialogMessageBox("Clear the title?", MessageBox_YesNo))
        CvnGUITextFieldSetString(titleField, "");
}

void onLock(const LgIndex_t *on)
{
    CvnGUISetSensitivity(clearButton, *on == 0 ? TRUE : FALSE);
}

void onList(const LgIndex_t *) {}

void onOk()
{
    if (!CvnGUITextFieldValidateLgIndex(pointsField, "Points:", 1, 5, FALSE))
        return;
    if (fileName.empty()) {
        CvnUtilDialogErrMsg("Choose a data file first");
        return;
    }
    LgIndex_t *selected = nullptr;
    LgIndex_t count = 0;
    CvnGUIListGetSelectedItems(variablesList, &selected, &count);
    std::string names;
    for (LgIndex_t i = 0; i < count; ++i) {
        char *item = CvnGUIListGetString(variablesList, selected[i]);
        if (i > 0)
            names += ',';
        names += item;
        CvnUtilStringDealloc(&item);
    }
    CvnUtilArrayDealloc(reinterpret_cast<void **>(&selected));
    if (names.empty()) {
        CvnUtilDialogErrMsg("Select at least one variable");
        return;
    }
    char *title = CvnGUITextFieldGetString(titleField);
    char *points = CvnGUITextFieldGetString(pointsField);
    StringList_s *instructions = CvnUtilStringListAlloc();
    for (const char *text : {fileName.c_str(), static_cast<const char *>(title),
                             static_cast<const char *>(points), names.c_str(), delimiter.c_str()})
        CvnUtilStringListAppendString(instructions, text);
    CvnUtilStringDealloc(&title);
    CvnUtilStringDealloc(&points);
    if (load(instructions))
        CvnGUIDialogDrop(mainDialog);
    else
        CvnUtilDialogMessageBox("Loading cancelled", MessageBox_Information);
    CvnUtilStringListDealloc(&instructions);
}

void onCancel()
{
    CvnGUIDialogDrop(mainDialog);
}

void onHelp()
{
    CvnUtilHelp("dialog_addon.html", FALSE, 0);
}

void onOptions()
{
    CvnGUIDialogLaunch(optionsDialog);
}

void onOptionsOk()
{
    const char *const names[] = {"Auto", "Comma", "Tab"};
    delimiter = names[CvnGUIOptionMenuGet(delimiterMenu) - 1];
    CvnGUIDialogDrop(optionsDialog);
}

void onOptionsCancel()
{
    CvnGUIDialogDrop(optionsDialog);
}

/* Shows the previous load, or the defaults. */
void onInit()
{
    bool before = previous != nullptr && CvnUtilStringListGetCount(previous) == 5;
    fileName = before ? stringAt(previous, 1) : "";
    CvnGUILabelSetText(fileLabel, fileName.c_str());
    CvnGUITextFieldSetString(titleField, before ? stringAt(previous, 2).c_str() : "New data");
    CvnGUITextFieldSetString(pointsField, before ? stringAt(previous, 3).c_str() : "3");
    std::vector<LgIndex_t> selection;
    for (const std::string &name : split(before ? stringAt(previous, 4) : ""))
        selection.push_back(name == "x" ? 1 : name == "y" ? 2 : 3);
    CvnGUIListSetSelectedItems(variablesList, selection.data(),
                               static_cast<LgIndex_t>(selection.size()));
}

void buildDialogs()
{
    mainDialog = CvnGUIDialogCreateModal(CVNGUI_MAIN_DIALOG_ID, 300, 200, "Test Loader", onInit,
                                         onOk, nullptr, onCancel, onHelp);
    CvnGUILabelAdd(mainDialog, 10, 10, "Data file:");
    fileLabel = CvnGUILabelAdd(mainDialog, 70, 10, "");
    CvnGUIButtonAdd(mainDialog, 200, 8, 60, 14, "Browse...", onBrowse);
    CvnGUILabelAdd(mainDialog, 10, 30, "Title:");
    titleField = CvnGUITextFieldAdd(mainDialog, 70, 28, 120, 14, onText);
    CvnGUILabelAdd(mainDialog, 10, 50, "Points:");
    pointsField = CvnGUITextFieldAdd(mainDialog, 10, 64, 40, 14, onText);
    CvnGUIFrameAdd(mainDialog, 5, 85, 120, 80, "Variables");
    variablesList = CvnGUIListAdd(mainDialog, 15, 100, 100, 60, TRUE, onList);
    for (const char *name : {"x", "y", "z"})
        CvnGUIListAppendItem(variablesList, name);
    clearButton = CvnGUIButtonAdd(mainDialog, 130, 100, 60, 14, "Clear title", onClear);
    CvnGUIButtonAdd(mainDialog, 130, 120, 60, 14, "Options...", onOptions);
    CvnGUIToggleAdd(mainDialog, 130, 140, 60, 12, "Lock title", onLock);

    optionsDialog = CvnGUIDialogCreateModal(mainDialog, 200, 60, "Options", nullptr, onOptionsOk,
                                            nullptr, onOptionsCancel, nullptr);
    CvnGUIToggleAdd(optionsDialog, 10, 10, 100, 12, "Skip blank lines", nullptr);
    CvnGUILabelAdd(optionsDialog, 10, 30, "Delimiter:");
    delimiterMenu = CvnGUIOptionMenuAdd(optionsDialog, 80, 30, 60, 12, "Auto,Comma,Tab", nullptr);
}

void selected(StringList_s *instructions, char, long)
{
    CvnUtilStringListDealloc(&previous);
    previous = CvnUtilStringListAlloc();
    for (LgIndex_t i = 1; i <= CvnUtilStringListGetCount(instructions); ++i)
        CvnUtilStringListAppendString(previous, stringAt(instructions, i).c_str());
    if (mainDialog == CVNGUI_BAD_ID)
        buildDialogs();
    CvnGUIDialogLaunch(mainDialog);
}

Boolean_t mayQuit()
{
    if (!CvnGUIDialogIsUp(mainDialog))
        return TRUE;
    CvnUtilDialogErrMsg("Close the Test Loader dialog before quitting");
    return FALSE;
}

void stateChanged(StateChange_e change, long)
{
    if (change != StateChange_Quit)
        return;
    CvnUtilStringListDealloc(&previous);
    mainDialog = optionsDialog = CVNGUI_BAD_ID;
    fileName.clear();
    delimiter = "Auto";
}

} // namespace

extern "C" __attribute__((visibility("default"))) void InitCvnAddOn113(void)
{
    CvnUtilAddOnRegister(100, loaderName, "V1.0", "Tests");
    CvnUtilStateChangeAddCallback(stateChanged);
    CvnUtilQuitAddQueryCallback(mayQuit);
    ArgList_s *args = CvnUtilArgListAlloc();
    CvnUtilArgListAppendString(args, "LoaderName", loaderName);
    CvnUtilArgListAppendFunction(args, "LoaderCallback", reinterpret_cast<const void *>(&replay));
    CvnUtilArgListAppendFunction(args, "LoaderSelectedCallback",
                                 reinterpret_cast<const void *>(&selected));
    CvnUtilImportAddLoaderX(args);
    CvnUtilArgListDealloc(&args);
}
