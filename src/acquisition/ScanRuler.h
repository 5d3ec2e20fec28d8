#pragma once

// The radius ruler of the Scan page: where to set the radial slide when the operator chooses a
// radius without a radial encoder, in the unit of the ruler on the arm.

#include <string>

namespace corvane {

class clsUnits;

// The slide position for a station, in the project unit: MarkedDiameter / 2 x fraction, reduced
// to the radial line of a probe that stands aside of it (sqrt(t^2 - side^2), 0 when the side is
// the larger), less the probe's radial offset. The offsets are in millimetres, as the probe
// selection puts them in force.
double RulerTarget(double fraction, double markedDiameter, double offsetSideMM, double offsetRadialMM,
                   const clsUnits& units);

// The measurement in the ruler's unit (0 ft, 1 m, 2 in, 3 mm) from a value in the project unit:
// inches to the nearest 1/32 as 13-13/32" with " (+)" when the printed value lies under the true
// one and " (-)" when over; feet as 3' then the inches so; "0.0 mm"; "0.0000 m".
std::string RulerMeasurementText(double target, int rulerUnit, const clsUnits& units);

} // namespace corvane
