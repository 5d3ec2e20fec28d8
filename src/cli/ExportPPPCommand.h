#pragma once

#include <iosfwd>
#include <string>

namespace corvane::cli {

// corvane-cli export-ppp PROJECT OUT.ppp: brings the project's active scan up to date as CHECK
// does and writes its reference (the active scan itself when the project has none) as a
// Michigan Wheel ppp file. Exit 0, or 2 with the reason on standard error; the file is then
// left as it was.
int RunExportPPP(const std::string& projectPath, const std::string& pppPath, std::ostream& out,
                 std::ostream& err);

} // namespace corvane::cli
