/*
 * NumberText.cpp - value formatting shared by the JSON and CSV writers.
 */
#include "NumberText.h"

#include <cmath>
#include <cstdint>

#include <fmt/format.h>

namespace corvane::cli {

std::optional<std::string> numberText(double value, FieldDataType_e type)
{
    if (!std::isfinite(value))
        return std::nullopt;
    switch (type) {
    case FieldDataType_Int32:
    case FieldDataType_Int16:
    case FieldDataType_Byte:
        return fmt::format("{}", static_cast<int64_t>(std::llround(value)));
    default:
        return fmt::format("{}", value);
    }
}

} // namespace corvane::cli
