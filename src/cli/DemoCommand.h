#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace corvane::cli {

// corvane-cli demo OUT.cvpj [--points N]: writes the built-in demo project. The file's stamp is
// fixed, so the same program writes the same bytes; data/demo.cvpj is made this way.
int RunDemo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace corvane::cli
