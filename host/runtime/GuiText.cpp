/*
 * GuiText.cpp - the CvnGUI* calls for one-line text fields (with their
 * integer and number readers and range checks) and multi-line texts.
 */
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>

#include <fmt/format.h>

#include "GuiStore.h"
#include "HostMemory.h"
#include "UserInterface.h"

using namespace corvane::host;
using namespace corvane::host::gui;

namespace {
std::string textOf(const char *text)
{
    return text != nullptr ? std::string(text) : std::string();
}

/* The field's text without surrounding blanks and without one trailing
   percent sign. */
std::string_view numberText(std::string_view text)
{
    auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    auto last = text.find_last_not_of(" \t");
    text = text.substr(first, last - first + 1);
    if (!text.empty() && text.back() == '%')
        text.remove_suffix(1);
    return text;
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
} // namespace

extern "C" {

LgIndex_t CvnGUITextFieldAdd(LgIndex_t ParentDialogID, LgIndex_t /*X*/, LgIndex_t /*Y*/,
                             LgIndex_t /*Width*/, LgIndex_t /*Height*/,
                             CvnGUITextCallback_pf Callback)
{
    Control control;
    control.kind = ControlKind::textField;
    control.textCallback = Callback;
    return addControl(ParentDialogID, std::move(control));
}

void CvnGUITextFieldSetString(LgIndex_t TextFieldID, const char *Text)
{
    if (Control *control = textField(TextFieldID))
        control->text = textOf(Text);
}

char *CvnGUITextFieldGetString(LgIndex_t TextFieldID)
{
    const Control *control = textField(TextFieldID);
    return control != nullptr ? newHostString(control->text, "TextFieldGetString") : nullptr;
}

void CvnGUITextFieldSetLgIndex(LgIndex_t TextFieldID, LgIndex_t Value, Boolean_t IsPercent)
{
    if (Control *control = textField(TextFieldID))
        control->text = fmt::format("{}{}", Value, percentSign(IsPercent));
}

Boolean_t CvnGUITextFieldGetLgIndex(LgIndex_t TextFieldID, LgIndex_t *Value)
{
    const Control *control = textField(TextFieldID);
    if (control == nullptr || Value == nullptr)
        return FALSE;
    auto value = parseIndex(control->text);
    if (!value)
        return FALSE;
    *Value = *value;
    return TRUE;
}

Boolean_t CvnGUITextFieldGetDouble(LgIndex_t TextFieldID, double *Value)
{
    const Control *control = textField(TextFieldID);
    if (control == nullptr || Value == nullptr)
        return FALSE;
    auto value = parseDouble(control->text);
    if (!value)
        return FALSE;
    *Value = *value;
    return TRUE;
}

Boolean_t CvnGUITextFieldValidateLgIndex(LgIndex_t TextFieldID, const char *FieldName,
                                         LgIndex_t Min, LgIndex_t Max, Boolean_t IsPercent)
{
    const Control *control = textField(TextFieldID);
    if (control == nullptr)
        return FALSE;
    auto value = parseIndex(control->text);
    if (value && *value >= Min && *value <= Max)
        return TRUE;
    const char *sign = percentSign(IsPercent);
    userInterface().error(fmt::format("{} must be a whole number from {}{} to {}{}.",
                                      textOf(FieldName), Min, sign, Max, sign));
    return FALSE;
}

Boolean_t CvnGUITextFieldValidateDouble(LgIndex_t TextFieldID, const char *FieldName, double Min,
                                        double Max, Boolean_t IsPercent)
{
    const Control *control = textField(TextFieldID);
    if (control == nullptr)
        return FALSE;
    auto value = parseDouble(control->text);
    if (value && *value >= Min && *value <= Max)
        return TRUE;
    const char *sign = percentSign(IsPercent);
    userInterface().error(fmt::format("{} must be a number from {}{} to {}{}.", textOf(FieldName),
                                      Min, sign, Max, sign));
    return FALSE;
}

LgIndex_t CvnGUITextAdd(LgIndex_t ParentDialogID, LgIndex_t /*X*/, LgIndex_t /*Y*/,
                        LgIndex_t /*Width*/, LgIndex_t /*Height*/, Boolean_t IsReadOnly,
                        CvnGUITextCallback_pf Callback)
{
    Control control;
    control.kind = ControlKind::text;
    control.readOnly = IsReadOnly != FALSE;
    control.textCallback = Callback;
    return addControl(ParentDialogID, std::move(control));
}

void CvnGUITextSetString(LgIndex_t TextID, const char *Text)
{
    if (Control *control = multiLineText(TextID))
        control->text = textOf(Text);
}

char *CvnGUITextGetString(LgIndex_t TextID)
{
    const Control *control = multiLineText(TextID);
    return control != nullptr ? newHostString(control->text, "TextGetString") : nullptr;
}

void CvnGUITextAppendString(LgIndex_t TextID, const char *Text)
{
    if (Control *control = multiLineText(TextID))
        control->text += textOf(Text);
}

} // extern "C"
