/*
 * server_addon.cpp - a small add-on whose dialog raises every kind of box
 * the browser front end shows, and loads data sets typed into it. Picking
 * "Server Test Loader" opens "Server Test":
 *
 *   Values: <field>      data set: "title=T;plot=3;x=1,2,3;y=4,5,6", or
 *                        "grid=3x2;h=..." for one variable on an I x J grid
 *   File name: <field>   the name the Save... chooser proposes
 *   [Ask] [Count] [Wait] [Save...] [Fail]
 *   Answer: <value label>   what the last box gave
 *
 * Ask asks "Proceed?"; Count runs a progress box with Cancel until it is
 * cancelled; Wait shows a message under the please-wait indicator; Save...
 * opens a file chooser to write; Fail shows an error; Help asks for
 * server_test.html#top. OK loads the values (an error box when they are
 * wrong) and takes the dialog down. The instructions are the values text.
 */
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "CvnAPI.h"

namespace {

const char *const loaderName = "Server Test Loader";

LgIndex_t dialog = CVNGUI_BAD_ID;
LgIndex_t valuesField, nameField, answerLabel;

std::string textOf(char *text)
{
    std::string copy = text != nullptr ? text : "";
    CvnUtilStringDealloc(&text);
    return copy;
}

std::vector<std::string> split(const std::string &text, char separator)
{
    std::vector<std::string> parts;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find(separator, start);
        if (end == std::string::npos)
            end = text.size();
        parts.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

/* Loads the data set the values describe; FALSE with an error box when
   they are wrong. */
Boolean_t load(const std::string &spec)
{
    std::string title = "Values";
    long plot = -1, imax = 0, jmax = 0;
    std::vector<std::string> names;
    std::vector<std::vector<double>> columns;
    for (const std::string &part : split(spec, ';')) {
        std::size_t equals = part.find('=');
        if (equals == std::string::npos) {
            CvnUtilDialogErrMsg(("Bad values: " + part).c_str());
            return FALSE;
        }
        std::string key = part.substr(0, equals), value = part.substr(equals + 1);
        if (key == "title") {
            title = value;
        } else if (key == "plot") {
            plot = std::atol(value.c_str());
        } else if (key == "grid") {
            imax = std::atol(value.c_str());
            jmax = std::atol(value.substr(value.find('x') + 1).c_str());
        } else {
            names.push_back(key);
            columns.emplace_back();
            for (const std::string &number : split(value, ','))
                columns.back().push_back(std::strtod(number.c_str(), nullptr));
        }
    }
    std::size_t points = columns.empty() ? 0 : columns.front().size();
    for (const auto &column : columns)
        if (column.size() != points || points == 0) {
            CvnUtilDialogErrMsg("Bad values: every variable needs as many values");
            return FALSE;
        }
    if (imax > 0) {
        if (columns.size() != 1 || static_cast<std::size_t>(imax * jmax) != points) {
            CvnUtilDialogErrMsg("Bad values: a grid takes one variable of I x J values");
            return FALSE;
        }
        std::vector<double> is, js;
        for (long j = 1; j <= jmax; ++j)
            for (long i = 1; i <= imax; ++i)
                is.push_back(static_cast<double>(i)), js.push_back(static_cast<double>(j));
        names.insert(names.begin(), {"I", "J"});
        columns.insert(columns.begin(), {is, js});
    } else {
        imax = static_cast<long>(points);
        jmax = 1;
    }

    CvnUtilDataLoadStart();
    StringList_s *vars = CvnUtilStringListAlloc();
    for (const std::string &name : names)
        CvnUtilStringListAppendString(vars, name.c_str());
    ArgList_s *args = CvnUtilArgListAlloc();
    CvnUtilArgListAppendString(args, "LoaderName", loaderName);
    CvnUtilArgListAppendString(args, "DataSetTitle", title.c_str());
    CvnUtilArgListAppendStringList(args, "VarNames", vars);
    std::vector<FieldDataType_e> types(names.size(), FieldDataType_Double);
    StringList_s *instructions = CvnUtilStringListAlloc();
    CvnUtilStringListAppendString(instructions, spec.c_str());
    Boolean_t ok = CvnUtilDataSetCreateX(args) &&
                   CvnUtilDataSetAddZone("Zone 1", imax, jmax, 1, ZoneType_Ordered, types.data()) &&
                   CvnUtilImportSetLoaderInstr(loaderName, instructions);
    for (std::size_t v = 0; ok && v < columns.size(); ++v) {
        FieldData_pa ref = CvnUtilDataValueGetRef(1, static_cast<EntIndex_t>(v + 1));
        for (std::size_t p = 0; p < points; ++p)
            CvnUtilDataValueSetByRef(ref, static_cast<LgIndex_t>(p + 1), columns[v][p]);
    }
    CvnUtilArgListDealloc(&args);
    args = CvnUtilArgListAlloc();
    if (plot >= 0)
        CvnUtilArgListAppendInt(args, "InitialPlotType", plot);
    ok = CvnUtilDataLoadFinishX(args) && ok;
    CvnUtilArgListDealloc(&args);
    CvnUtilStringListDealloc(&instructions);
    CvnUtilStringListDealloc(&vars);
    return ok;
}

Boolean_t replay(StringList_s *instructions, long)
{
    return load(textOf(CvnUtilStringListGetString(instructions, 1)));
}

void onAsk()
{
    bool yes = CvnUtilDialogMessageBox("Proceed?", MessageBox_YesNo);
    CvnGUILabelSetText(answerLabel, yes ? "yes" : "no");
}

void onCount()
{
    CvnUtilDialogLaunchPercentDone("Counting...", TRUE);
    bool going = CvnUtilDialogCheckPercentDone(10);
    while (going) {
        ::usleep(1000);
        going = CvnUtilDialogCheckPercentDone(50);
    }
    CvnUtilDialogDropPercentDone();
    CvnGUILabelSetText(answerLabel, "cancelled");
}

void onWait()
{
    CvnUtilPleaseWait("Thinking", TRUE);
    CvnUtilDialogMessageBox("Still thinking", MessageBox_Information);
    CvnUtilPleaseWait(nullptr, FALSE);
    CvnGUILabelSetText(answerLabel, "thought");
}

void onSave()
{
    std::string proposed = textOf(CvnGUITextFieldGetString(nameField));
    char *chosen = nullptr;
    if (CvnUtilDialogGetFileName(SelectFileOption_WriteFile, &chosen, "Save values",
                                 proposed.c_str(), "*.txt"))
        CvnGUILabelSetText(answerLabel, chosen);
    else
        CvnGUILabelSetText(answerLabel, "no file");
    CvnUtilStringDealloc(&chosen);
}

void onFail()
{
    CvnUtilDialogErrMsg("Something failed");
}

LgIndex_t onText(const char *)
{
    return TRUE;
}

void onOk()
{
    if (load(textOf(CvnGUITextFieldGetString(valuesField))))
        CvnGUIDialogDrop(dialog);
}

void onCancel()
{
    CvnGUIDialogDrop(dialog);
}

void onHelp()
{
    CvnUtilHelp("server_test.html#top", FALSE, 0);
}

void selected(StringList_s *previous, char, long)
{
    if (dialog == CVNGUI_BAD_ID) {
        dialog = CvnGUIDialogCreateModal(CVNGUI_MAIN_DIALOG_ID, 320, 120, "Server Test", nullptr,
                                         onOk, nullptr, onCancel, onHelp);
        CvnGUILabelAdd(dialog, 10, 10, "Values:");
        valuesField = CvnGUITextFieldAdd(dialog, 80, 8, 220, 14, onText);
        CvnGUILabelAdd(dialog, 10, 30, "File name:");
        nameField = CvnGUITextFieldAdd(dialog, 80, 28, 220, 14, onText);
        const std::pair<const char *, void (*)()> buttons[] = {
            {"Ask", onAsk}, {"Count", onCount}, {"Wait", onWait}, {"Save...", onSave},
            {"Fail", onFail}};
        LgIndex_t x = 10;
        for (const auto &[label, callback] : buttons) {
            CvnGUIButtonAdd(dialog, x, 50, 50, 14, label, callback);
            x += 60;
        }
        CvnGUILabelAdd(dialog, 10, 75, "Answer:");
        answerLabel = CvnGUILabelAdd(dialog, 80, 75, "");
    }
    std::string last = CvnUtilStringListGetCount(previous) > 0
                           ? textOf(CvnUtilStringListGetString(previous, 1))
                           : "";
    CvnGUITextFieldSetString(valuesField, last.c_str());
    CvnGUIDialogLaunch(dialog);
}

void stateChanged(StateChange_e change, long)
{
    if (change == StateChange_Quit)
        dialog = CVNGUI_BAD_ID;
}

} // namespace

extern "C" __attribute__((visibility("default"))) void InitCvnAddOn113(void)
{
    CvnUtilAddOnRegister(100, loaderName, "V1.0", "Tests");
    CvnUtilStateChangeAddCallback(stateChanged);
    ArgList_s *args = CvnUtilArgListAlloc();
    CvnUtilArgListAppendString(args, "LoaderName", loaderName);
    CvnUtilArgListAppendFunction(args, "LoaderCallback", reinterpret_cast<const void *>(&replay));
    CvnUtilArgListAppendFunction(args, "LoaderSelectedCallback",
                                 reinterpret_cast<const void *>(&selected));
    CvnUtilImportAddLoaderX(args);
    CvnUtilArgListDealloc(&args);
}
