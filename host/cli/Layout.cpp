/*
 * Layout.cpp - writing and reading layout files.
 */
#include "Layout.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "InputFile.h"

namespace corvane::cli {

using Json = nlohmann::ordered_json;

void writeLayout(std::FILE *out, std::span<const host::DataSet> sets)
{
    Json loads = Json::array();
    for (const auto &set : sets) {
        if (set.loaderInstructions)
            loads.push_back({{"loader", set.loaderInstructions->loader},
                             {"strings", set.loaderInstructions->strings}});
    }
    Json layout = {{"corvaneLayout", layoutVersion}, {"loads", loads}};
    fmt::print(out, "{}\n", layout.dump(2, ' ', false, Json::error_handler_t::replace));
}

host::Expected<std::vector<host::LoaderInstructions>> parseLayout(std::string_view text)
{
    Json layout = Json::parse(text.begin(), text.end(), nullptr, false);
    if (layout.is_discarded())
        return host::unexpected("not a corvane layout (not JSON)");
    if (!layout.is_object() || !layout.contains("corvaneLayout"))
        return host::unexpected("not a corvane layout (no \"corvaneLayout\" entry)");
    const Json &version = layout["corvaneLayout"];
    if (!version.is_number_integer() || version.get<int64_t>() != layoutVersion)
        return host::unexpected(
            fmt::format("unsupported corvane layout version {}", version.dump()));
    if (!layout.contains("loads") || !layout["loads"].is_array())
        return host::unexpected("not a corvane layout (no \"loads\" list)");
    if (layout["loads"].empty())
        return host::unexpected("the layout holds no loads");

    std::vector<host::LoaderInstructions> loads;
    for (const Json &load : layout["loads"]) {
        size_t n = loads.size() + 1;
        if (!load.is_object() || !load.contains("loader") || !load["loader"].is_string())
            return host::unexpected(fmt::format("load {} of the layout has no loader name", n));
        if (!load.contains("strings") || !load["strings"].is_array())
            return host::unexpected(fmt::format("load {} of the layout has no strings", n));
        host::LoaderInstructions instructions{load["loader"].get<std::string>(), {}};
        for (const Json &text : load["strings"]) {
            if (!text.is_string())
                return host::unexpected(
                    fmt::format("load {} of the layout holds a string that is not text", n));
            instructions.strings.push_back(text.get<std::string>());
        }
        loads.push_back(std::move(instructions));
    }
    return loads;
}

host::Expected<std::vector<host::LoaderInstructions>> readLayout(const std::string &path)
{
    auto opened = host::openInputFile(path);
    if (!opened)
        return host::unexpected("cannot read layout " + opened.error());
    std::ifstream &in = *opened;
    std::ostringstream text;
    text << in.rdbuf();
    auto loads = parseLayout(text.str());
    if (!loads)
        return host::unexpected(fmt::format("{}: {}", path, loads.error()));
    return loads;
}

} // namespace corvane::cli
