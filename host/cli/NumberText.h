/*
 * NumberText.h - how the outputs write one value of a field.
 */
#ifndef CORVANE_CLI_NUMBERTEXT_H
#define CORVANE_CLI_NUMBERTEXT_H

#include <optional>
#include <string>

#include "CvnAPI.h"

namespace corvane::cli {

/* The value in the shortest form that reads back to the same double
   (1, 0.1, 1e+20, -0); values of integer fields as integers. Nothing for
   a non-finite value (JSON writes null, CSV an empty cell). */
std::optional<std::string> numberText(double value, FieldDataType_e type);

} // namespace corvane::cli

#endif
