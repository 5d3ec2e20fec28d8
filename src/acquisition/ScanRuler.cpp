#include "acquisition/ScanRuler.h"

#include "model/NumberFormat.h"
#include "model/clsUnits.h"

#include <cmath>
#include <numeric>

namespace corvane {
namespace {

constexpr int kFeet = 0;
constexpr int kMetres = 1;
constexpr int kInches = 2;
constexpr int kMillimetres = 3;
constexpr int kSixteenthsTimesTwo = 32;

// Inches to the nearest 1/32 with the sign of the rounding: 13-13/32" (-).
std::string InchText(double inches) {
    const double thirtySeconds = std::round(inches * kSixteenthsTimesTwo);
    const double printed = thirtySeconds / kSixteenthsTimesTwo;
    const auto total = static_cast<long long>(thirtySeconds);
    const long long whole = total / kSixteenthsTimesTwo;
    long long numerator = std::llabs(total % kSixteenthsTimesTwo);
    long long denominator = kSixteenthsTimesTwo;
    std::string text = (total < 0 && whole == 0 ? "-" : "") + std::to_string(whole);
    if (numerator != 0) {
        const long long divisor = std::gcd(numerator, denominator);
        numerator /= divisor;
        denominator /= divisor;
        text += "-" + std::to_string(numerator) + "/" + std::to_string(denominator);
    }
    text += "\"";
    if (printed < inches - 1e-9) {
        text += " (+)";
    } else if (printed > inches + 1e-9) {
        text += " (-)";
    }
    return text;
}

} // namespace

double RulerTarget(double fraction, double markedDiameter, double offsetSideMM, double offsetRadialMM,
                   const clsUnits& units) {
    double target = markedDiameter / 2 * fraction;
    const double side = units.ConvertUnitPropLength(offsetSideMM, -1, kMillimetres);
    if (std::fabs(offsetSideMM) > 0.001) {
        target = std::fabs(target) > std::fabs(side) ? std::sqrt(target * target - side * side) : 0.0;
    }
    return target - units.ConvertUnitPropLength(offsetRadialMM, -1, kMillimetres);
}

std::string RulerMeasurementText(double target, int rulerUnit, const clsUnits& units) {
    switch (rulerUnit) {
    case kFeet: {
        const double inches = units.ConvertUnitPropLength(target, kInches, -1);
        // Whole feet, taken out after rounding the inches to twelfths of a foot.
        const double feet = std::floor(std::round(inches * kSixteenthsTimesTwo) / kSixteenthsTimesTwo / 12.0);
        return FormatNumber(feet, "0") + "' " + InchText(inches - feet * 12.0);
    }
    case kMetres:
        return FormatNumber(units.ConvertUnitPropLength(target, kMetres, -1), "0.0000") + " m";
    case kMillimetres:
        return FormatNumber(units.ConvertUnitPropLength(target, kMillimetres, -1), "0.0") + " mm";
    default:
        return InchText(units.ConvertUnitPropLength(target, kInches, -1));
    }
}

} // namespace corvane
