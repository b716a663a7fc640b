/*
 * MulDiv.h - a * b / c without overflowing the product, for percentages of
 * progress and the preview layout.
 */
#ifndef TW_MULDIV_H
#define TW_MULDIV_H

#include <cstdint>

namespace corvane::cvnutildataio {

/* A * B / C with a 64-bit product; the division is unsigned, so the result
   is right for A, B >= 0 and C > 0. C == 0 gives 0. */
int32_t TW_MulDiv(int32_t A, int32_t B, int32_t C);

} // namespace corvane::cvnutildataio

#endif
