#pragma once

// The arguments of corvane-cli evaluate, parsed before anything is read, so that a wrong option
// costs nothing.

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace CLI {
class App;
}

namespace corvane::cli {

struct EvaluateOptions {
    std::string projectPath;
    bool json = false;
    std::optional<std::int16_t> rotationIndex; // --hand: 0 right, 1 left
    std::string scan;                          // --scan: index in the set, or the scan's letters
    // The reference the project names is replaced by at most one of these.
    std::string referencePath;                            // --reference: cvrf or ppp
    std::optional<double> constantPitch;                  // --constant-pitch, project unit
    std::vector<std::pair<double, double>> variablePitch; // --variable-pitch: (r/R, pitch)
    std::optional<std::int16_t> classIndex;               // --class: ISOClassIndex
    std::optional<std::int16_t> criteriaIndex;            // --criteria: ISOCriteriaIndex
};

// Declares evaluate's argument and options on its command; parsing fills options and refuses,
// with a one-line reason, an option that is unknown, lacks its value or has a value out of its
// range, and more than one of the reference options. A command that prints no table (graph)
// leaves --json out.
void AddEvaluateOptions(CLI::App& command, EvaluateOptions& options, bool json = true);

} // namespace corvane::cli
