#pragma once

#include "files/FileReadResult.h"

#include <iosfwd>
#include <string>

namespace corvane::cli {

// Replaces gProject by the project in a cvpj file (or an older tbsc scan file); `read` receives
// what the reader said. false when the file cannot be used, with one line on err:
// "corvane-cli <command>: cannot read <path>: <reason>".
bool ReadProject(const std::string& command, const std::string& path, std::ostream& err,
                 FileReadResult& read);

// The same, with the notices of a usable read (missing or unknown items) on err, one line each.
bool LoadProject(const std::string& command, const std::string& path, std::ostream& err);

} // namespace corvane::cli
