/*
 * DataField.cpp - one variable's values in one zone, kept in the field's own
 * type; integer fields round to nearest and clamp on store.
 */
#include <cmath>
#include <cstdint>
#include <limits>

#include "DataModel.h"

namespace corvane::host {

namespace {

/* value rounded half away from zero and clamped to T's range; NaN gives 0. */
template <typename T> T roundClamped(double value)
{
    constexpr double lo = std::numeric_limits<T>::min();
    constexpr double hi = std::numeric_limits<T>::max();
    if (std::isnan(value))
        return 0;
    const double r = std::round(value);
    if (r <= lo)
        return std::numeric_limits<T>::min();
    if (r >= hi)
        return std::numeric_limits<T>::max();
    return static_cast<T>(r);
}

template <typename T> void storeAt(std::vector<T> &values, size_t index, double value)
{
    if (index < values.size()) {
        if constexpr (std::is_same_v<T, double>)
            values[index] = value;
        else
            values[index] = roundClamped<T>(value);
    }
}

} // namespace

Field::Field(FieldDataType_e type, size_t points) : type_(type)
{
    switch (type) {
    case FieldDataType_Int32:
        values_ = std::vector<int32_t>(points);
        break;
    case FieldDataType_Int16:
        values_ = std::vector<int16_t>(points);
        break;
    case FieldDataType_Byte:
        values_ = std::vector<uint8_t>(points);
        break;
    default:
        values_ = std::vector<double>(points);
        break;
    }
}

size_t Field::size() const
{
    return std::visit([](const auto &v) { return v.size(); }, values_);
}

double Field::get(size_t index) const
{
    return std::visit(
        [index](const auto &v) {
            return index < v.size() ? static_cast<double>(v[index])
                                    : std::numeric_limits<double>::quiet_NaN();
        },
        values_);
}

/* The hot path of every load: one switch and a direct store. An index out of
   range is ignored. */
void Field::set(size_t index, double value)
{
    switch (type_) {
    case FieldDataType_Int32:
        storeAt(*std::get_if<std::vector<int32_t>>(&values_), index, value);
        break;
    case FieldDataType_Int16:
        storeAt(*std::get_if<std::vector<int16_t>>(&values_), index, value);
        break;
    case FieldDataType_Byte:
        storeAt(*std::get_if<std::vector<uint8_t>>(&values_), index, value);
        break;
    default:
        storeAt(*std::get_if<std::vector<double>>(&values_), index, value);
        break;
    }
}

const char *fieldTypeName(FieldDataType_e type)
{
    switch (type) {
    case FieldDataType_Float:
        return "float";
    case FieldDataType_Double:
        return "double";
    case FieldDataType_Int32:
        return "int32";
    case FieldDataType_Int16:
        return "int16";
    case FieldDataType_Byte:
        return "byte";
    }
    return "unknown";
}

} // namespace corvane::host
