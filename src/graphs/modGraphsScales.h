#pragma once

// Printed measuring scales: a ruler across the whole surface, in sixteenths of an inch or tenths of
// a centimetre, with a red line at the value it is centred on.

#include "graphs/modGraphs.h"

#include <string>

namespace corvane {

class DrawingSurface;

// The ruler runs from 0 to twice `centre` (inches or centimetres) across the surface.
void CreateInchScale(DrawingSurface& surface, double centre, const GraphOptions& options);
void CreateCentimeterScale(DrawingSurface& surface, double centre, const GraphOptions& options);

// The nearest fraction with a denominator of 2 to 128 in lowest terms, whole part first:
// 3.3125 gives "3 5/16", 0.5 "1/2", 2 "2".
std::string NearestBinaryFraction(double value);

} // namespace corvane
