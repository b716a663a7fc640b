/*
 * StatePublisher.cpp - the state's JSON and its versions.
 */
#include "StatePublisher.h"

#include "AddOns.h"
#include "DataOutput.h"
#include "GuiJson.h"

namespace corvane::server {

using Json = nlohmann::ordered_json;

namespace {

/* The loaders of the host's load menu: those a user can pick. */
Json menuLoaders()
{
    Json names = Json::array();
    for (const host::Loader &loader : host::loaders())
        if (loader.selectedCallback != nullptr)
            names.push_back(cli::asUtf8(loader.name));
    return names;
}

} // namespace

Json dataSetSummaries(std::span<const host::DataSet> sets)
{
    Json summaries = Json::array();
    for (std::size_t index = 0; index < sets.size(); ++index) {
        const host::DataSet &set = sets[index];
        Json variables = Json::array();
        for (const std::string &name : set.variables)
            variables.push_back(cli::asUtf8(name));
        Json zones = Json::array();
        for (const host::Zone &zone : set.zones)
            zones.push_back({{"name", cli::asUtf8(zone.name)},
                             {"imax", zone.imax},
                             {"jmax", zone.jmax},
                             {"kmax", zone.kmax},
                             {"points", zone.points()}});
        summaries.push_back(
            {{"index", index},
             {"title", cli::asUtf8(set.title)},
             {"variables", std::move(variables)},
             {"plotType", set.initialPlotType ? Json(*set.initialPlotType) : Json(nullptr)},
             {"zones", std::move(zones)}});
    }
    return summaries;
}

StatePublisher::StatePublisher(EventHub &hub, const BrowserUi &ui) : hub_(hub), ui_(ui) {}

void StatePublisher::listen()
{
    subscription_ = host::gui::subscribe(
        [changed = dialogsChanged_](const host::gui::GuiEvent &) { *changed = true; });
}

void StatePublisher::stopListening()
{
    subscription_.cancel();
}

void StatePublisher::publish()
{
    if (*dialogsChanged_) {
        dialogs_ = host::gui::toJsonWithIds(host::gui::snapshot())["dialogs"];
        *dialogsChanged_ = false;
    }
    Json state = {{"version", 0},
                  {"loaders", menuLoaders()},
                  {"dialogs", dialogs_},
                  {"box", ui_.boxJson()},
                  {"progress", ui_.progressJson()},
                  {"busy", ui_.busyJson()},
                  {"dataSets", dataSetSummaries(host::finishedDataSets())}};
    auto dump = [](const Json &json) {
        return json.dump(-1, ' ', false, Json::error_handler_t::replace);
    };
    std::string body = dump(state);
    if (body == lastBody_)
        return;
    lastBody_ = std::move(body);
    std::uint64_t version = hub_.nextVersion();
    state["version"] = version;
    hub_.publish(version, dump(state));
}

} // namespace corvane::server
