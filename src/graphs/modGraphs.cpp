#include "graphs/modGraphs.h"

#include "iso484/clsISO484.h"
#include "model/NumberFormat.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/modReferenceSource.h"
#include "model/modUtilities.h"

namespace corvane {

GraphColour BladeColour(int blade) {
    return blade >= 0 && blade < static_cast<int>(kBladeColours.size())
               ? kBladeColours[static_cast<std::size_t>(blade)]
               : 0;
}

GraphStyle GraphStyleSettings(bool report, int graphSize) {
    if (report) {
        return {28, 24, 6, 10, 2};
    }
    if (graphSize == 1) {
        return {28, 24, 8, 11, 4};
    }
    return {16, 12, 2, 5, 1};
}

int BladeLabelCode(double thetaDeg, bool scanArm) {
    const double t = Wrap360(thetaDeg);
    if (t >= 337.5 || t < 22.5) {
        return 4;
    }
    if (t < 67.5) {
        return 3;
    }
    if (t < 112.5) {
        return 7;
    }
    if (t < 157.5) {
        return 0;
    }
    if (t < 202.5) {
        return 5;
    }
    if (t < 247.5) {
        return 1;
    }
    if (t < 292.5) {
        return scanArm ? 1 : 6;
    }
    return 2;
}

double FormatTolerance(const std::string& lengthFormat, const std::string& suffix) {
    return StringToDouble(lengthFormat + suffix);
}

std::string Bracketed(const std::string& value, const std::string& suffix, bool outside) {
    return outside ? "[<b>" + value + suffix + "]" : value + suffix;
}

bool OutsideWindow(const ISOWindow& window, double tolerance, bool reference) {
    if (!reference) {
        return false;
    }
    return !(CompareDouble(window.Value, kCompareGreaterOrEqual, window.Lower, tolerance) &&
             CompareDouble(window.Value, kCompareLessOrEqual, window.Upper, tolerance));
}

std::string LengthFormat(const clsCorvane& project) {
    return project.Units() ? project.Units()->PropLengthFormat() : "0.00";
}

std::string FormatLength(const clsCorvane& project, double value) {
    return FormatNumber(value, LengthFormat(project));
}

std::string UnitLabel(const clsCorvane& project) {
    return project.Units() ? project.Units()->GetUnitPropLengthLabel(-1) : "";
}

std::array<double, 4> PlotMarginRatios(const PlotMarginTwips& m, double widthTwips, double heightTwips) {
    double left = m.guardLeft, right = m.guardRight, top = m.guardTop, bottom = m.guardBottom;
    if (m.left + m.right < widthTwips && widthTwips > 0) {
        left = m.left / widthTwips;
        right = (widthTwips - m.right) / widthTwips;
    }
    if (m.top + m.bottom < heightTwips && heightTwips > 0) {
        top = m.top / heightTwips;
        bottom = (heightTwips - m.bottom) / heightTwips;
    }
    return {left, top, 1 - right, 1 - bottom};
}

const clsPropeller* RequestScan(const GraphRequest& request) {
    if (request.scanIndex < 0 || request.scanIndex >= request.project.PropellerScanCount()) {
        return nullptr;
    }
    return request.project.PropellerScan(request.scanIndex).get();
}

const clsPropeller* RequestReference(const GraphRequest& request) {
    if (request.project.ReferenceSourceIndex() == kReferenceNone ||
        request.iso.Results().ReferenceSourceIndex == kReferenceNone) {
        return nullptr;
    }
    return request.project.ReferenceScan().get();
}

bool BladeShown(const GraphRequest& request, int blade) {
    return blade >= static_cast<int>(request.selection.blades.size()) ||
           request.selection.blades[static_cast<std::size_t>(blade)];
}

bool RowShown(const GraphRequest& request, int row) {
    return row >= 0 && row < static_cast<int>(request.selection.radii.size()) &&
           request.selection.radii[static_cast<std::size_t>(row)];
}

const ISOBladeResults* BladeResults(const GraphRequest& request, int blade) {
    const ISOResults& results = request.iso.Results();
    if (blade < 0 || static_cast<std::size_t>(blade) >= results.Blades.size()) {
        return nullptr;
    }
    const ISOBladeResults& b = results.Blades[static_cast<std::size_t>(blade)];
    return b.Evaluated ? &b : nullptr;
}

const ISOSectionResults* SectionResults(const GraphRequest& request, int blade, int section) {
    const ISOBladeResults* b = BladeResults(request, blade);
    if (b == nullptr || section < 0 || static_cast<std::size_t>(section) >= b->Sections.size()) {
        return nullptr;
    }
    const ISOSectionResults& s = b->Sections[static_cast<std::size_t>(section)];
    return s.Measured ? &s : nullptr;
}

} // namespace corvane
