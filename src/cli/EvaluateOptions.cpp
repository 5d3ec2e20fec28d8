#include "cli/EvaluateOptions.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace corvane::cli {
namespace {

// The pitch table of a project has one row per standard section; a longer list is a mistake.
constexpr std::size_t kMaxVariablePitchPoints = 64;

// A finite number written in full ("36", "35.5", "-1e-3"), read the same in every locale;
// nothing for anything else.
std::optional<double> ParseNumber(const std::string& text) {
    double value = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (text.empty() || result.ec != std::errc() || result.ptr != end || !std::isfinite(value))
        return std::nullopt;
    return value;
}

double ConstantPitch(const std::string& text) {
    const auto pitch = ParseNumber(text);
    if (!pitch || !(*pitch > 0))
        throw CLI::ValidationError("--constant-pitch", "takes a pitch above 0, not '" + text + "'");
    return *pitch;
}

std::vector<std::pair<double, double>> VariablePitch(const std::string& text) {
    std::vector<std::pair<double, double>> rows;
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t comma = std::min(text.find(',', start), text.size());
        const std::string item = text.substr(start, comma - start);
        const std::size_t colon = item.find(':');
        const auto radius = colon == std::string::npos ? std::nullopt : ParseNumber(item.substr(0, colon));
        const auto pitch = colon == std::string::npos ? std::nullopt : ParseNumber(item.substr(colon + 1));
        if (!radius || !pitch)
            throw CLI::ValidationError("--variable-pitch",
                                       "takes r/R:pitch pairs separated by commas, not '" + item + "'");
        if (!(*radius > 0 && *radius <= 1) || !(*pitch > 0))
            throw CLI::ValidationError("--variable-pitch",
                                       "r/R must lie in (0, 1] and the pitch be above 0 in '" + item + "'");
        if (rows.size() == kMaxVariablePitchPoints)
            throw CLI::ValidationError("--variable-pitch", "takes at most 64 pairs");
        rows.emplace_back(*radius, *pitch);
        start = comma + 1;
    }
    return rows;
}

// An option taking one of words, in any case, that stores the word's place in the list: the
// lists below are in the order of the model's index.
CLI::Option* AddChoice(CLI::App& command, const std::string& name, const std::vector<std::string>& words,
                       std::optional<std::int16_t>& index, const std::string& description) {
    const auto store = [&index, words](const std::string& word) {
        index = static_cast<std::int16_t>(std::find(words.begin(), words.end(), word) - words.begin());
    };
    // The check gives back the word as listed, so "1A" is found as "1a".
    return command.add_option_function<std::string>(name, store, description)
        ->type_name(CLI::detail::join(words, "|"))
        ->check(CLI::IsMember(words, CLI::ignore_case).description(""));
}

} // namespace

void AddEvaluateOptions(CLI::App& command, EvaluateOptions& options, bool json) {
    command.add_option("PROJECT", options.projectPath, "the cvpj project (or an older tbsc scan file)")
        ->required();
    AddChoice(command, "--hand", {"right", "left"}, options.rotationIndex,
              "the set of scans to take one from");
    command
        .add_option("--scan", options.scan, "the scan: its index in the set as info lists it, or its letters")
        ->type_name("N|letter")
        ->check(CLI::Validator(
            [](std::string& scan) {
                return scan.empty() ? std::string("takes a scan number or letter") : "";
            },
            ""));
    if (json)
        command.add_flag("--json", options.json, "one JSON object instead of the table");
    CLI::Option* file =
        command.add_option("--reference", options.referencePath, "a cvrf or ppp file as the reference")
            ->type_name("FILE");
    CLI::Option* constant =
        command
            .add_option_function<std::string>(
                "--constant-pitch",
                [&options](const std::string& text) { options.constantPitch = ConstantPitch(text); },
                "a constant pitch as the reference, in the project unit")
            ->type_name("P");
    CLI::Option* variable =
        command
            .add_option_function<std::string>(
                "--variable-pitch",
                [&options](const std::string& text) { options.variablePitch = VariablePitch(text); },
                "a pitch by r/R as the reference, straight between the pairs")
            ->type_name("r:p,...");
    file->excludes(constant)->excludes(variable);
    constant->excludes(variable);
    AddChoice(command, "--class", {"S", "1", "1a", "2", "3"}, options.classIndex,
              "the ISO 484 class to judge by");
    AddChoice(command, "--criteria", {"primary", "secondary"}, options.criteriaIndex,
              "the primary criteria alone, or with the secondary");
}

} // namespace corvane::cli
