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
} // namespace

extern "C" {

LgIndex_t CvnGUIListAdd(LgIndex_t ParentDialogID, LgIndex_t /*X*/, LgIndex_t /*Y*/,
                        LgIndex_t /*Width*/, LgIndex_t /*Height*/, Boolean_t IsMultiSelection,
                        CvnGUIIntCallback_pf Callback)
{
    return addControl(ParentDialogID, {.kind = ControlKind::list,
                                       .multiSelection = IsMultiSelection != FALSE,
                                       .intCallback = Callback});
}

void CvnGUIListAppendItem(LgIndex_t ListID, const char *Item)
{
    if (Control *list = listRecord(ListID))
        list->items.push_back(textOf(Item));
}

void CvnGUIListDeleteAllItems(LgIndex_t ListID)
{
    if (Control *list = listRecord(ListID)) {
        list->items.clear();
        list->selection.clear();
    }
}

void CvnGUIListDeleteItemAtPos(LgIndex_t ListID, LgIndex_t Position)
{
    Control *list = listRecord(ListID);
    if (list == nullptr || !inRange(*list, Position))
        return;
    list->items.erase(list->items.begin() + (Position - 1));
    /* The deleted item leaves the selection; the items after it move up. */
    std::erase(list->selection, Position);
    for (LgIndex_t &selected : list->selection)
        if (selected > Position)
            --selected;
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
    list->selection.clear();
    if (inRange(*list, Position))
        list->selection.push_back(Position);
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
    list->selection.clear();
    for (LgIndex_t i = 0; Items != nullptr && i < Count; ++i)
        if (inRange(*list, Items[i]) &&
            std::find(list->selection.begin(), list->selection.end(), Items[i]) ==
                list->selection.end())
            list->selection.push_back(Items[i]);
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
