/*
 * GuiEvents.h - change notifications of the dialog toolkit, for front ends
 * that show the dialogs: which dialog went up or down, which control was
 * added or changed. Changes made by the add-on's CvnGUI* calls and by user
 * actions are told alike, each as it happens, only when something changed.
 */
#ifndef CORVANE_HOST_GUIEVENTS_H
#define CORVANE_HOST_GUIEVENTS_H

#include <functional>

#include "CvnAPI.h"

namespace corvane::host::gui {

enum class Change {
    dialogUp,    /* the dialog was launched: it is the top dialog now */
    dialogDown,  /* the dialog was dropped */
    added,       /* a control was added to the dialog */
    value,       /* toggle on/off, radio box or option menu item */
    text,        /* text field or multi-line text, a value-showing label's text */
    items,       /* items of a list */
    selection,   /* selected items of a list */
    sensitivity, /* the control became sensitive or insensitive */
    label,       /* a label's text (labels that name something) */
};

struct GuiEvent {
    Change change = Change::value;
    LgIndex_t dialog = CVNGUI_BAD_ID;
    LgIndex_t control = CVNGUI_BAD_ID; /* CVNGUI_BAD_ID for dialogUp and dialogDown */
    bool operator==(const GuiEvent &) const = default;
};

using Listener = std::function<void(const GuiEvent &)>;

/* A listener's registration: the listener hears changes until the
   subscription is cancelled or destroyed. A listener may act on the
   toolkit, subscribe and unsubscribe while it is told. */
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(long id) : id_(id) {}
    Subscription(Subscription &&other) noexcept;
    Subscription &operator=(Subscription &&other) noexcept;
    Subscription(const Subscription &) = delete;
    Subscription &operator=(const Subscription &) = delete;
    ~Subscription() { cancel(); }

    void cancel();

private:
    long id_ = 0; /* 0: not subscribed */
};

[[nodiscard]] Subscription subscribe(Listener listener);

} // namespace corvane::host::gui

#endif
