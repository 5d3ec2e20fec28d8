#pragma once

#include <iosfwd>
#include <string>

namespace corvane::cli {

// Replaces gProject by the project in a cvpj file (or an older tbsc scan file). The notices of
// the reader (missing or unknown items) go to err, one line each, and the project is used. false
// when the file cannot be used, with one line on err: "corvane-cli <command>: cannot read
// <path>: <reason>".
bool LoadProject(const std::string& command, const std::string& path, std::ostream& err);

} // namespace corvane::cli
