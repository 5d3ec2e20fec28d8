#pragma once

// The arguments of corvane-cli evaluate, parsed before anything is read, so that a wrong option
// costs nothing.

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

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

inline constexpr const char* kEvaluateUsage =
    "usage: corvane-cli evaluate PROJECT [--hand right|left] [--scan N] [--json]\n"
    "         [--reference FILE.cvrf|FILE.ppp | --constant-pitch P | --variable-pitch r1:p1,r2:p2,...]\n"
    "         [--class S|1|1a|2|3] [--criteria primary|secondary]\n";

// Fills options from the arguments after the command word. false with a one-line reason in
// error when an option is unknown, lacks its value or has a value out of its range.
bool ParseEvaluateOptions(const std::vector<std::string>& args, EvaluateOptions& options, std::string& error);

// "S", "1", "1a", "2", "3" to ISOClassIndex 0 to 4; nothing for any other text.
std::optional<std::int16_t> ClassIndexFromText(const std::string& text);

// A finite number written in full ("36", "35.5", "-1e-3"); nothing for anything else.
std::optional<double> ParseOptionNumber(const std::string& text);

} // namespace corvane::cli
