/*
 * GuiEvents.cpp - the listeners of the dialog toolkit and telling them.
 */
#include "GuiEvents.h"

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "GuiStore.h"

namespace corvane::host::gui {

namespace {
/* By subscription id, in subscription order. Shared so that a listener
   being told stays alive when it unsubscribes itself. Ids are never
   reused, not even after resetGui. */
std::map<long, std::shared_ptr<Listener>> listeners;
long lastSubscription = 0;
} // namespace

Subscription::Subscription(Subscription &&other) noexcept : id_(std::exchange(other.id_, 0)) {}

Subscription &Subscription::operator=(Subscription &&other) noexcept
{
    if (this != &other) {
        cancel();
        id_ = std::exchange(other.id_, 0);
    }
    return *this;
}

void Subscription::cancel()
{
    if (id_ != 0)
        listeners.erase(std::exchange(id_, 0));
}

Subscription subscribe(Listener listener)
{
    listeners.emplace(++lastSubscription, std::make_shared<Listener>(std::move(listener)));
    return Subscription(lastSubscription);
}

void notify(const GuiEvent &event)
{
    /* Listeners may (un)subscribe while they are told: walk a copy of the
       ids and skip those gone meanwhile. */
    std::vector<long> ids;
    for (const auto &entry : listeners)
        ids.push_back(entry.first);
    for (long id : ids) {
        auto found = listeners.find(id);
        if (found == listeners.end())
            continue;
        std::shared_ptr<Listener> listener = found->second;
        (*listener)(event);
    }
}

void controlChanged(const Control &control, Change change)
{
    notify({change, control.dialog, control.id});
}

void forgetListeners()
{
    listeners.clear();
}

} // namespace corvane::host::gui
