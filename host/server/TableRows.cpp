/*
 * TableRows.cpp - table rows of a zone.
 */
#include "TableRows.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "DataOutput.h"

namespace corvane::server {

using Json = nlohmann::ordered_json;

Json tableRows(const host::DataSet &set, const host::Zone &zone, std::size_t rows)
{
    Json variables = Json::array();
    for (const std::string &name : set.variables)
        variables.push_back(cli::asUtf8(name));
    Json table = Json::array();
    std::size_t points = std::min(rows, static_cast<std::size_t>(zone.points()));
    for (std::size_t point = 0; point < points; ++point) {
        Json row = Json::array();
        for (const host::Field &field : zone.fields) {
            double value = field.get(point);
            if (!std::isfinite(value))
                row.push_back(nullptr);
            else if (field.type() != FieldDataType_Double)
                row.push_back(static_cast<std::int64_t>(value));
            else
                row.push_back(value);
        }
        table.push_back(std::move(row));
    }
    return {{"variables", std::move(variables)}, {"rows", std::move(table)}};
}

} // namespace corvane::server
