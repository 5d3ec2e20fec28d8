#include "cli/EvaluateOptions.h"

#include <charconv>
#include <cmath>

namespace corvane::cli {
namespace {

// The pitch table of a project has one row per standard section; a longer list is a mistake.
constexpr std::size_t kMaxVariablePitchPoints = 64;

bool ParseVariablePitch(const std::string& text, std::vector<std::pair<double, double>>& rows,
                        std::string& error) {
    rows.clear();
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t comma = std::min(text.find(',', start), text.size());
        const std::string item = text.substr(start, comma - start);
        const std::size_t colon = item.find(':');
        const auto radius =
            colon == std::string::npos ? std::nullopt : ParseOptionNumber(item.substr(0, colon));
        const auto pitch =
            colon == std::string::npos ? std::nullopt : ParseOptionNumber(item.substr(colon + 1));
        if (!radius || !pitch) {
            error = "--variable-pitch takes r/R:pitch pairs separated by commas, not '" + item + "'";
            return false;
        }
        if (!(*radius > 0 && *radius <= 1) || !(*pitch > 0)) {
            error = "--variable-pitch: r/R must lie in (0, 1] and the pitch be above 0 in '" + item + "'";
            return false;
        }
        if (rows.size() == kMaxVariablePitchPoints) {
            error = "--variable-pitch takes at most 64 pairs";
            return false;
        }
        rows.emplace_back(*radius, *pitch);
        start = comma + 1;
    }
    return true;
}

} // namespace

std::optional<double> ParseOptionNumber(const std::string& text) {
    double value = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (text.empty() || result.ec != std::errc() || result.ptr != end || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<std::int16_t> ClassIndexFromText(const std::string& text) {
    if (text == "S" || text == "s")
        return 0;
    if (text == "1")
        return 1;
    if (text == "1a" || text == "1A")
        return 2;
    if (text == "2")
        return 3;
    if (text == "3")
        return 4;
    return std::nullopt;
}

bool ParseEvaluateOptions(const std::vector<std::string>& args, EvaluateOptions& options,
                          std::string& error) {
    int referenceChoices = 0;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        const bool takesValue = arg == "--hand" || arg == "--scan" || arg == "--reference" ||
                                arg == "--constant-pitch" || arg == "--variable-pitch" || arg == "--class" ||
                                arg == "--criteria";
        if (takesValue && i + 1 >= args.size()) {
            error = arg + " needs a value";
            return false;
        }
        if (arg == "--json") {
            options.json = true;
        } else if (arg == "--hand") {
            const std::string& hand = args[++i];
            if (hand != "right" && hand != "left") {
                error = "--hand takes right or left, not '" + hand + "'";
                return false;
            }
            options.rotationIndex = hand == "right" ? 0 : 1;
        } else if (arg == "--scan") {
            options.scan = args[++i];
            if (options.scan.empty()) {
                error = "--scan takes a scan number or letter";
                return false;
            }
        } else if (arg == "--reference") {
            options.referencePath = args[++i];
            ++referenceChoices;
        } else if (arg == "--constant-pitch") {
            const auto pitch = ParseOptionNumber(args[++i]);
            if (!pitch || !(*pitch > 0)) {
                error = "--constant-pitch takes a pitch above 0, not '" + args[i] + "'";
                return false;
            }
            options.constantPitch = pitch;
            ++referenceChoices;
        } else if (arg == "--variable-pitch") {
            if (!ParseVariablePitch(args[++i], options.variablePitch, error))
                return false;
            ++referenceChoices;
        } else if (arg == "--class") {
            options.classIndex = ClassIndexFromText(args[++i]);
            if (!options.classIndex) {
                error = "--class takes S, 1, 1a, 2 or 3, not '" + args[i] + "'";
                return false;
            }
        } else if (arg == "--criteria") {
            const std::string& criteria = args[++i];
            if (criteria != "primary" && criteria != "secondary") {
                error = "--criteria takes primary or secondary, not '" + criteria + "'";
                return false;
            }
            options.criteriaIndex = criteria == "primary" ? 0 : 1;
        } else if (options.projectPath.empty() && !arg.empty() && arg[0] != '-') {
            options.projectPath = arg;
        } else {
            error = "unexpected argument '" + arg + "'";
            return false;
        }
    }
    if (referenceChoices > 1) {
        error = "give one of --reference, --constant-pitch and --variable-pitch";
        return false;
    }
    if (options.projectPath.empty()) {
        error = "no project file given";
        return false;
    }
    return true;
}

} // namespace corvane::cli
