/*
 * DataField.cpp - one variable's values in one zone, kept in the field's own
 * type; integer fields round to nearest and clamp on store.
 */
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <sys/mman.h>
#include <limits>
#include <new>

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

/* Bytes of one value of the type. */
size_t valueSize(FieldDataType_e type)
{
    switch (type) {
    case FieldDataType_Int32:
        return sizeof(int32_t);
    case FieldDataType_Int16:
        return sizeof(int16_t);
    case FieldDataType_Byte:
        return sizeof(uint8_t);
    default:
        return sizeof(double);
    }
}

} // namespace

void Field::FreeBuffer::operator()(void *buffer) const
{
    if (bytes != 0)
        munmap(buffer, bytes);
    else
        std::free(buffer);
}

/* A zeroed buffer; large ones are mapped with their pages in place, which
   costs one call instead of a fault per page while the values are stored. */
std::unique_ptr<void, Field::FreeBuffer> Field::makeBuffer(size_t bytes)
{
    constexpr size_t PrefaultBytes = size_t(1) << 20;
    if (bytes >= PrefaultBytes) {
        void *p = mmap(nullptr, bytes, PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0);
        if (p != MAP_FAILED)
            return std::unique_ptr<void, Field::FreeBuffer>(p, Field::FreeBuffer{bytes});
    }
    return std::unique_ptr<void, Field::FreeBuffer>(std::calloc(bytes ? bytes : 1, 1),
                                                     Field::FreeBuffer{});
}

Field::Field(FieldDataType_e type, size_t points)
    : type_(type == FieldDataType_Int32 || type == FieldDataType_Int16 ||
                    type == FieldDataType_Byte
                ? type
                : FieldDataType_Double),
      size_(points), values_(nullptr, FreeBuffer{})
{
}

bool Field::prepare()
{
    if (!values_)
        values_ = makeBuffer(size_ * valueSize(type_));
    return values_ != nullptr;
}

Field::Field(const Field &other) : Field(other.type_, other.size_)
{
    if (!other.values_)
        return;
    if (!prepare())
        throw std::bad_alloc();
    std::memcpy(values_.get(), other.values_.get(), size_ * valueSize(type_));
}

Field &Field::operator=(const Field &other)
{
    if (this != &other)
        *this = Field(other);
    return *this;
}

double Field::get(size_t index) const
{
    if (index >= size_)
        return std::numeric_limits<double>::quiet_NaN();
    if (!values_)
        return 0.0;
    switch (type_) {
    case FieldDataType_Int32:
        return static_cast<const int32_t *>(values_.get())[index];
    case FieldDataType_Int16:
        return static_cast<const int16_t *>(values_.get())[index];
    case FieldDataType_Byte:
        return static_cast<const uint8_t *>(values_.get())[index];
    default:
        return static_cast<const double *>(values_.get())[index];
    }
}

void Field::setInteger(size_t index, double value)
{
    switch (type_) {
    case FieldDataType_Int32:
        static_cast<int32_t *>(values_.get())[index] = roundClamped<int32_t>(value);
        break;
    case FieldDataType_Int16:
        static_cast<int16_t *>(values_.get())[index] = roundClamped<int16_t>(value);
        break;
    case FieldDataType_Byte:
        static_cast<uint8_t *>(values_.get())[index] = roundClamped<uint8_t>(value);
        break;
    default:
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
