/*
 * TableRows.h - the first points of a zone as table rows for the page:
 *
 *   {"variables": [names], "rows": [[values of point 1], ...]}
 *
 * Values of integer fields are integers; infinities and NaN are null.
 */
#ifndef CORVANE_SERVER_TABLEROWS_H
#define CORVANE_SERVER_TABLEROWS_H

#include <cstddef>

#include <nlohmann/json.hpp>

#include "DataModel.h"

namespace corvane::server {

nlohmann::ordered_json tableRows(const host::DataSet &set, const host::Zone &zone,
                                 std::size_t rows);

} // namespace corvane::server

#endif
