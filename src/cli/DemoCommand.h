#pragma once

#include <iosfwd>
#include <string>

namespace corvane::cli {

// corvane-cli demo OUT.cvpj [--points N]: writes the built-in demo project with N points per
// section (2 to 5000). The file's stamp is fixed, so the same program writes the same bytes;
// data/demo.cvpj is made this way. Exit 0, or 2 when the file cannot be written.
int RunDemo(const std::string& path, int points, std::ostream& out, std::ostream& err);

} // namespace corvane::cli
