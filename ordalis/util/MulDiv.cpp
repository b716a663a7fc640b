/*
 * MulDiv.cpp - a * b / c with a 64-bit product.
 */
#include "MulDiv.h"

namespace corvane::cvnutildataio {

int32_t TW_MulDiv(int32_t A, int32_t B, int32_t C)
{
    if (C == 0)
        return 0;
    uint64_t Product = static_cast<uint64_t>(static_cast<int64_t>(A) * static_cast<int64_t>(B));
    uint64_t Divisor = static_cast<uint64_t>(static_cast<int64_t>(C));
    return static_cast<int32_t>(static_cast<uint32_t>(Product / Divisor));
}

} // namespace corvane::cvnutildataio
