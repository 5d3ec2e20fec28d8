#pragma once

// What corvane-cli evaluate found beyond the numbers the calculation leaves in the scan and in
// gISO484's results: which scan it was, and the verdicts of the ISO 484 evaluation. The writers
// read the scan and the windows from gProject and gISO484 themselves.

#include "iso484/ISOResults.h"

#include <cstdint>
#include <iosfwd>
#include <string>

namespace corvane::cli {

struct EvaluationSummary {
    int scanIndex = 0;     // in the set RotationIndex selects
    std::string scanLabel; // the letters the scan goes by
    // The ISO chain ran: the windows, verdicts and class codes below mean something.
    bool isoEvaluated = false;
    std::int16_t classStatus = 0; // EvaluateClassStatus of the project's class
    std::int16_t bestClass = 0;   // GetBestISOClass: 0 not evaluated, 1 meets, 2 fails, 3 partial
    std::int16_t propellerCode = 4;
    ISOClassCodes classCodes; // per row, one code per blade
    std::string standardText;
    std::string sentence;
};

// ScanID 0 to 25 "A" to "Z", up to 701 two letters ("AA" for 26), the number itself beyond.

// The verdict word of a status code ("N/A", "PASS", "FAIL", ...); "" outside the table.
std::string StatusWord(int code);

// One JSON object: the project and scan, each blade with its sections, and with the ISO chain
// the reference, class settings, verdicts, class codes and every criterion's window.
void WriteEvaluationJson(std::ostream& out, const EvaluationSummary& summary);

// The same as a table for a reader at a terminal.
void WriteEvaluationTable(std::ostream& out, const EvaluationSummary& summary);

} // namespace corvane::cli
