/*
 * GuiLists.cpp - the CvnGUI* calls for lists: items numbered from 1, a
 * selection kept in the order it was made.
 */
#include <algorithm>
#include <string>

#include "GuiStore.h"
#include "HostMemory.h"

using namespace corvane::host;
using namespace corvane::host::gui;

namespace {
Control *listRecord(LgIndex_t id)
{
    return controlRecord(id, {ControlKind::list});
}

bool inRange(const Control &list, LgIndex_t position)
{
    return position >= 1 && position <= static_cast<LgIndex_t>(list.items.size());
}

void setSelection(Control &list, std::vector<LgIndex_t> selection)
{
    change(list, list.selection, std::move(selection), Change::selection);
}
} // namespace

extern "C" {

LgIndex_t CvnGUIListAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                        LgIndex_t Height, Boolean_t IsMultiSelection,
                        CvnGUIIntCallback_pf Callback)
{
    return addControl(ParentDialogID, {.kind = ControlKind::list, .x = X, .y = Y, .width = Width,
                                       .height = Height,
                                       .multiSelection = IsMultiSelection != FALSE,
                                       .intCallback = Callback});
}

void CvnGUIListAppendItem(LgIndex_t ListID, const char *Item)
{
    if (Control *list = listRecord(ListID)) {
        list->items.push_back(textOf(Item));
        controlChanged(*list, Change::items);
    }
}

void CvnGUIListDeleteAllItems(LgIndex_t ListID)
{
    if (Control *list = listRecord(ListID)) {
        change(*list, list->items, {}, Change::items);
        setSelection(*list, {});
    }
}

void CvnGUIListDeleteItemAtPos(LgIndex_t ListID, LgIndex_t Position)
{
    Control *list = listRecord(ListID);
    if (list == nullptr || !inRange(*list, Position))
        return;
    list->items.erase(list->items.begin() + (Position - 1));
    controlChanged(*list, Change::items);
    /* The deleted item leaves the selection; the items after it move up. */
    std::vector<LgIndex_t> selection = list->selection;
    std::erase(selection, Position);
    for (LgIndex_t &selected : selection)
        if (selected > Position)
            --selected;
    setSelection(*list, std::move(selection));
}

LgIndex_t CvnGUIListGetItemCount(LgIndex_t ListID)
{
    const Control *list = listRecord(ListID);
    return list != nullptr ? static_cast<LgIndex_t>(list->items.size()) : 0;
}

char *CvnGUIListGetString(LgIndex_t ListID, LgIndex_t Position)
{
    const Control *list = listRecord(ListID);
    if (list == nullptr || !inRange(*list, Position))
        return nullptr;
    return newHostString(list->items[static_cast<std::size_t>(Position - 1)], "ListGetString");
}

void CvnGUIListSetSelectedItem(LgIndex_t ListID, LgIndex_t Position)
{
    Control *list = listRecord(ListID);
    if (list == nullptr)
        return;
    std::vector<LgIndex_t> selection;
    if (inRange(*list, Position))
        selection.push_back(Position);
    setSelection(*list, std::move(selection));
}

LgIndex_t CvnGUIListGetSelectedItem(LgIndex_t ListID)
{
    const Control *list = listRecord(ListID);
    return list != nullptr && !list->selection.empty() ? list->selection.front() : 0;
}

void CvnGUIListSetSelectedItems(LgIndex_t ListID, const LgIndex_t *Items, LgIndex_t Count)
{
    Control *list = listRecord(ListID);
    if (list == nullptr)
        return;
    std::vector<LgIndex_t> selection;
    for (LgIndex_t i = 0; Items != nullptr && i < Count; ++i)
        if (inRange(*list, Items[i]) &&
            std::find(selection.begin(), selection.end(), Items[i]) == selection.end())
            selection.push_back(Items[i]);
    setSelection(*list, std::move(selection));
}

void CvnGUIListGetSelectedItems(LgIndex_t ListID, LgIndex_t **Items, LgIndex_t *Count)
{
    if (Items == nullptr || Count == nullptr)
        return;
    *Items = nullptr;
    *Count = 0;
    const Control *list = listRecord(ListID);
    if (list == nullptr || list->selection.empty())
        return;
    LgIndex_t *copy = newHostIndexArray(list->selection.size());
    if (copy == nullptr)
        return;
    std::copy(list->selection.begin(), list->selection.end(), copy);
    *Items = copy;
    *Count = static_cast<LgIndex_t>(list->selection.size());
}

} // extern "C"
