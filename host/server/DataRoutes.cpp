/*
 * DataRoutes.cpp - the handlers of the data sets: table rows, plot data,
 * exports, and the layout of the run's loads.
 */
#include <charconv>
#include <filesystem>
#include <limits>
#include <system_error>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "BrowserHost.h"
#include "DataExport.h"
#include "PlotData.h"
#include "CheckReport.h"
#include "RunOutputs.h"
#include "StoredLoad.h"
#include "TableRows.h"

namespace corvane::server {

namespace fs = std::filesystem;

namespace {

/* A whole number written in decimal digits only, or nothing. */
std::optional<std::size_t> wholeNumber(std::string_view text)
{
    std::size_t value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

/* A query number from low up, fallback when absent; clamped to high. */
host::Expected<std::size_t> queryNumber(const Request &request, const char *name,
                                        std::size_t fallback, std::size_t low, std::size_t high)
{
    auto text = request.param(name);
    if (!text)
        return fallback;
    auto value = wholeNumber(*text);
    if (!value || *value < low)
        return host::unexpected(fmt::format("{} must be a whole number from {}", name, low));
    return std::min(*value, high);
}

enum class DataView { table, plot, csv, json, check };

/* The loader whose instruction sets check reads. */
constexpr std::string_view checkedLoader = "Ordalis Loader";

std::optional<DataView> viewNamed(std::string_view name)
{
    if (name == "table")
        return DataView::table;
    if (name == "plot")
        return DataView::plot;
    if (name == "export.csv")
        return DataView::csv;
    if (name == "export.json")
        return DataView::json;
    if (name == "check")
        return DataView::check;
    return std::nullopt;
}

} // namespace

Response BrowserHost::dataSet(const Request &request, std::string_view rest)
{
    std::size_t slash = rest.find('/');
    auto index = wholeNumber(rest.substr(0, slash));
    auto view = slash == std::string_view::npos ? std::nullopt : viewNamed(rest.substr(slash + 1));
    if (!index || !view)
        return errorResponse(404, fmt::format("no such page: {}", request.path));
    if (*view == DataView::check)
        return checkDataSet(*index);
    auto zone = queryNumber(request, "zone", 1, 1, std::numeric_limits<std::size_t>::max());
    auto rows = queryNumber(request, "rows", 100, 0, 1000);
    auto width = queryNumber(request, "width", 1000, 1, 10000);
    auto height = queryNumber(request, "height", 600, 1, 10000);
    for (const auto *number : {&zone, &rows, &width, &height})
        if (!*number)
            return errorResponse(400, number->error());

    Response response;
    bool ran = onUiThread(UiThread::Kind::read, [&] {
        auto sets = host::finishedDataSets();
        if (*index >= sets.size()) {
            response = errorResponse(404, fmt::format("there is no data set {}", *index));
            return;
        }
        const host::DataSet &set = sets[*index];
        if (*zone > set.zones.size()) {
            response = errorResponse(404, fmt::format("data set {} has no zone {}", *index, *zone));
            return;
        }
        const host::Zone &chosen = set.zones[*zone - 1];
        switch (*view) {
        case DataView::table:
            response = jsonResponse(200, tableRows(set, chosen, *rows));
            break;
        case DataView::plot:
            response = textResponse(200, encodePlot(plotSeries(set, chosen, *width, *height)),
                                    "application/octet-stream");
            break;
        case DataView::check:
            break;
        case DataView::csv:
        case DataView::json: {
            auto format = *view == DataView::csv ? cli::OutputFormat::csv : cli::OutputFormat::json;
            response = textResponse(200, exportText(set, format),
                                    format == cli::OutputFormat::csv ? "text/csv; charset=utf-8"
                                                                     : "application/json");
            response.headers.emplace_back(
                "Content-Disposition",
                fmt::format("attachment; filename=\"{}\"", downloadName(set, *index, format)));
            break;
        }
        }
    });
    return ran ? response : stoppingResponse();
}

/* The stored load is copied on the user-interface thread; the file is read
   and checked outside it, so the dialogs stay responsive meanwhile. */
Response BrowserHost::checkDataSet(std::size_t index)
{
    std::optional<Response> refused;
    std::vector<std::string> strings;
    std::set<int> stopped;
    bool ran = onUiThread(UiThread::Kind::read, [&] {
        auto sets = host::finishedDataSets();
        if (index >= sets.size()) {
            refused = errorResponse(404, fmt::format("there is no data set {}", index));
            return;
        }
        const host::DataSet &set = sets[index];
        if (!set.loaderInstructions || set.loaderInstructions->loader != checkedLoader) {
            refused = errorResponse(
                409, fmt::format("data set {} was not loaded by the {}: there is nothing to check",
                                 index, checkedLoader));
            return;
        }
        strings = set.loaderInstructions->strings;
        if (auto kept = stoppedBySet_.find(index); kept != stoppedBySet_.end())
            stopped = kept->second;
    });
    if (!ran)
        return stoppingResponse();
    if (refused)
        return *refused;
    auto report = inspect::checkStoredLoad(strings, stopped);
    if (!report)
        return errorResponse(409, fmt::format("cannot check: {}", report.error()));
    nlohmann::json body = inspect::reportJson(*report);
    body["text"] = inspect::reportText(*report);
    return jsonResponse(200, body);
}

Response BrowserHost::layout(const Request &request)
{
    nlohmann::json body = nlohmann::json::parse(request.body, nullptr, false);
    if (!body.is_object() || !body.contains("path") || !body["path"].is_string())
        return errorResponse(400, "the layout needs \"path\": where to write it");
    std::string path = body["path"].get<std::string>();
    if (path.empty() || path.front() != '/')
        return errorResponse(400, fmt::format("\"{}\" is not an absolute path", path));
    std::error_code ec;
    if (fs::exists(path, ec) && !fs::is_regular_file(path, ec))
        return errorResponse(403, fmt::format("{} is not a plain file", path));

    Response response = okResponse();
    bool ran = onUiThread(UiThread::Kind::read, [&] {
        auto sets = host::finishedDataSets();
        if (sets.empty()) {
            response = errorResponse(409, "no data set has been loaded yet");
            return;
        }
        if (auto written = cli::writeOutputs({}, path, sets); !written)
            response = errorResponse(409, written.error());
    });
    return ran ? response : stoppingResponse();
}

} // namespace corvane::server
