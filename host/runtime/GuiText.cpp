/*
 * GuiText.cpp - the CvnGUI* calls for one-line text fields (with their
 * integer and number readers and range checks) and multi-line texts.
 */
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>

#include <fmt/format.h>

#include "GuiStore.h"
#include "HostMemory.h"
#include "UserInterface.h"

using namespace corvane::host;
using namespace corvane::host::gui;

namespace {
std::string_view trimBlanks(std::string_view text)
{
    auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    auto last = text.find_last_not_of(" \t");
    return text.substr(first, last - first + 1);
}

/* The text without surrounding blanks and without one final character
   (when it is that one). */
std::string_view trimmedWithout(std::string_view text, char final)
{
    text = trimBlanks(text);
    if (!text.empty() && text.back() == final)
        text.remove_suffix(1);
    return text;
}

/* The field's text without surrounding blanks and without one trailing
   percent sign. */
std::string_view numberText(std::string_view text)
{
    return trimmedWithout(text, '%');
}

std::optional<LgIndex_t> parseIndex(std::string_view text)
{
    text = numberText(text);
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    LgIndex_t value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::optional<double> parseDouble(std::string_view text)
{
    std::string digits(numberText(text));
    if (digits.empty())
        return std::nullopt;
    char *end = nullptr;
    double value = std::strtod(digits.c_str(), &end);
    if (end != digits.c_str() + digits.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

const char *percentSign(Boolean_t isPercent)
{
    return isPercent != FALSE ? "%" : "";
}

Control *textField(LgIndex_t id)
{
    return controlRecord(id, {ControlKind::textField});
}

Control *multiLineText(LgIndex_t id)
{
    return controlRecord(id, {ControlKind::text});
}

void setText(Control &control, std::string text)
{
    change(control, control.text, std::move(text), Change::text);
}

/* A new host string with the control's text; nullptr for no control. */
char *textCopy(const Control *control, const char *label)
{
    return control != nullptr ? newHostString(control->text, label) : nullptr;
}

/* Reads the text field's number with parse into *value; FALSE (value
   untouched) when there is no such field or its text is not a number. */
template <class Number>
Boolean_t readNumber(LgIndex_t id, Number *value,
                     std::optional<Number> (*parse)(std::string_view))
{
    const Control *control = textField(id);
    if (control == nullptr || value == nullptr)
        return FALSE;
    auto number = parse(control->text);
    if (!number)
        return FALSE;
    *value = *number;
    return TRUE;
}

/* The field's name as the add-on gave it, without surrounding blanks and
   a final ':' (the message adds its own). */
std::string fieldName(const char *name)
{
    return std::string(trimBlanks(trimmedWithout(name != nullptr ? name : "", ':')));
}

/* TRUE when the text field holds a number from min to max; otherwise shows
   <name>: "<text>" is not <what> from <min> to <max>.
   (with percent signs when isPercent) in an error box and gives FALSE. A
   range that spans every number of the type is not named: the message then
   ends after <what>. */
template <class Number>
Boolean_t validateNumber(LgIndex_t id, std::optional<Number> (*parse)(std::string_view),
                         const char *what, const char *name, Number min, Number max,
                         Boolean_t isPercent)
{
    const Control *control = textField(id);
    if (control == nullptr)
        return FALSE;
    auto number = parse(control->text);
    if (number && *number >= min && *number <= max)
        return TRUE;
    const char *sign = percentSign(isPercent);
    bool unbounded = min <= std::numeric_limits<Number>::lowest() &&
                     max >= std::numeric_limits<Number>::max();
    if (unbounded)
        userInterface().error(
            fmt::format("{}: \"{}\" is not {}.", fieldName(name), control->text, what));
    else
        userInterface().error(fmt::format("{}: \"{}\" is not {} from {}{} to {}{}.",
                                          fieldName(name), control->text, what, min, sign, max,
                                          sign));
    return FALSE;
}
} // namespace

extern "C" {

LgIndex_t CvnGUITextFieldAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                             LgIndex_t Height, CvnGUITextCallback_pf Callback)
{
    return addControl(ParentDialogID, {.kind = ControlKind::textField, .x = X, .y = Y,
                                       .width = Width, .height = Height,
                                       .textCallback = Callback});
}

void CvnGUITextFieldSetString(LgIndex_t TextFieldID, const char *Text)
{
    if (Control *control = textField(TextFieldID))
        setText(*control, textOf(Text));
}

char *CvnGUITextFieldGetString(LgIndex_t TextFieldID)
{
    return textCopy(textField(TextFieldID), "TextFieldGetString");
}

void CvnGUITextFieldSetLgIndex(LgIndex_t TextFieldID, LgIndex_t Value, Boolean_t IsPercent)
{
    if (Control *control = textField(TextFieldID))
        setText(*control, fmt::format("{}{}", Value, percentSign(IsPercent)));
}

Boolean_t CvnGUITextFieldGetLgIndex(LgIndex_t TextFieldID, LgIndex_t *Value)
{
    return readNumber(TextFieldID, Value, parseIndex);
}

Boolean_t CvnGUITextFieldGetDouble(LgIndex_t TextFieldID, double *Value)
{
    return readNumber(TextFieldID, Value, parseDouble);
}

Boolean_t CvnGUITextFieldValidateLgIndex(LgIndex_t TextFieldID, const char *FieldName,
                                         LgIndex_t Min, LgIndex_t Max, Boolean_t IsPercent)
{
    return validateNumber(TextFieldID, parseIndex, "a whole number", FieldName, Min, Max,
                          IsPercent);
}

Boolean_t CvnGUITextFieldValidateDouble(LgIndex_t TextFieldID, const char *FieldName, double Min,
                                        double Max, Boolean_t IsPercent)
{
    return validateNumber(TextFieldID, parseDouble, "a number", FieldName, Min, Max, IsPercent);
}

LgIndex_t CvnGUITextAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                        LgIndex_t Height, Boolean_t IsReadOnly, CvnGUITextCallback_pf Callback)
{
    return addControl(ParentDialogID, {.kind = ControlKind::text, .x = X, .y = Y, .width = Width,
                                       .height = Height, .readOnly = IsReadOnly != FALSE,
                                       .textCallback = Callback});
}

void CvnGUITextSetString(LgIndex_t TextID, const char *Text)
{
    if (Control *control = multiLineText(TextID))
        setText(*control, textOf(Text));
}

char *CvnGUITextGetString(LgIndex_t TextID)
{
    return textCopy(multiLineText(TextID), "TextGetString");
}

void CvnGUITextAppendString(LgIndex_t TextID, const char *Text)
{
    if (Control *control = multiLineText(TextID))
        setText(*control, control->text + textOf(Text));
}

} // extern "C"
