#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace corvane::cli {

// corvane-cli info FILE [--json]: the header and the scan, blade and section counts of a cvpj or
// tbsc file with the number of points of each section. Exit 0, 1 for usage, 2 when the file
// cannot be read (with a one-line reason on standard error).
int RunInfo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace corvane::cli
