#pragma once

#include <iosfwd>

namespace corvane::cli {

struct EvaluateOptions;

// corvane-cli evaluate PROJECT [--hand right|left] [--scan N] [--json] [reference] [class]:
// runs on the project what the CHECK button runs and prints the scan's geometry and its ISO
// 484 evaluation, as a table or as one JSON object. Exit 0, or 2 with the reason on standard
// error when the file cannot be read or the calculation fails. The calculation's messages go
// to standard error too.
int RunEvaluate(const EvaluateOptions& options, std::ostream& out, std::ostream& err);

} // namespace corvane::cli
