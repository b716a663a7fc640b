/*
 * StatePublisher.h - builds the state the page shows and publishes it to
 * the event hub when it changed, on the user-interface thread:
 *
 *   {"version", "loaders", "dialogs", "box", "progress", "busy", "dataSets"}
 *
 * "dialogs" is the toolkit's JSON with ids; the dialogs are read again only
 * when the toolkit told of a change since the last time. The version grows
 * by one with every state that differs from the one before.
 */
#ifndef CORVANE_SERVER_STATEPUBLISHER_H
#define CORVANE_SERVER_STATEPUBLISHER_H

#include <memory>
#include <span>
#include <string>

#include <nlohmann/json.hpp>

#include "BrowserUi.h"
#include "DataModel.h"
#include "EventHub.h"
#include "GuiEvents.h"

namespace corvane::server {

/* The state's "dataSets": index, title, variables, plotType and zones
   (name, imax, jmax, kmax, points) of each. */
nlohmann::ordered_json dataSetSummaries(std::span<const host::DataSet> sets);

class StatePublisher {
public:
    StatePublisher(EventHub &hub, const BrowserUi &ui);

    /* Starts hearing the toolkit's changes (on the user-interface thread). */
    void listen();
    /* Stops hearing them. */
    void stopListening();
    /* Publishes the state if it changed. */
    void publish();

private:
    EventHub &hub_;
    const BrowserUi &ui_;
    host::gui::Subscription subscription_;
    /* Set by the toolkit's change events; shared with the listener. */
    std::shared_ptr<bool> dialogsChanged_ = std::make_shared<bool>(true);
    nlohmann::ordered_json dialogs_ = nlohmann::ordered_json::array();
    std::string lastBody_;
};

} // namespace corvane::server

#endif
