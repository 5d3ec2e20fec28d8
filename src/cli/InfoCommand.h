#pragma once

#include <iosfwd>
#include <string>

namespace corvane::cli {

// corvane-cli info FILE [--json]: the header and the scan, blade and section counts of a cvpj or
// tbsc file with the number of points of each section. Exit 0, or 2 when the file cannot be
// read (with a one-line reason on standard error).
int RunInfo(const std::string& path, bool asJson, std::ostream& out, std::ostream& err);

} // namespace corvane::cli
