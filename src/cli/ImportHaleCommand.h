#pragma once

#include <iosfwd>
#include <string>

namespace corvane::cli {

// corvane-cli import-hale FILE -o OUT.cvpj: reads a Hale MRI measuring machine's file into a new
// project with one scan, as the File menu's import does, and writes it as a cvpj project that
// `evaluate` then checks. The reader's warnings go to standard error, and so does a note of the
// required project fields the file left empty. Exit 0, or 2 with the reason on standard error
// when the file cannot be read whole or the project cannot be written; OUT is then as it was.
int RunImportHale(const std::string& halePath, const std::string& projectPath, std::ostream& out,
                  std::ostream& err);

} // namespace corvane::cli
