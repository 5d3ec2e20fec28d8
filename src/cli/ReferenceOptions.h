#pragma once

// The reference that corvane-cli evaluate compares the scan with, when the command line names
// one: it replaces the project's reference settings the way the reference panel's Apply does.

#include "cli/EvaluateOptions.h"

#include <array>
#include <iosfwd>
#include <utility>
#include <vector>

namespace corvane::cli {

// Reads --reference (cvrf: the reference blocks sorted onto the standard rows; ppp: the Michigan
// Wheel import) into gProject's ReferenceSource as source 2, or sets source 1 with the constant
// or variable pitch. Every blade with data then takes part in a scan reference. false with one
// line on err when the file cannot be used; the importer's own messages have gone to the
// prompts before.
bool ApplyReferenceOptions(const EvaluateOptions& options, std::ostream& err);

// What a checking command takes from the command line before it checks: the ISO class and
// criteria when given, then the reference as ApplyReferenceOptions does.
bool ApplyCheckOptions(const EvaluateOptions& options, std::ostream& err);

// The pitch at each row of the standard radial table from (r/R, pitch) points: straight lines
// between the points in order of r/R, the end values beyond them. The project's table has one
// row per section, and the nose-tail pitch of section k is taken against row k.
std::array<double, 8> PitchAtStandardRows(const std::vector<std::pair<double, double>>& points,
                                          const std::array<double, 8>& rows);

} // namespace corvane::cli
