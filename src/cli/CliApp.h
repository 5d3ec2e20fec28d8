#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace corvane::cli {

// The command-line front end: parses the arguments, runs the command on the GUI-free core and
// returns the process exit code (0 success, 1 usage, 2 the command failed).
int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace corvane::cli
