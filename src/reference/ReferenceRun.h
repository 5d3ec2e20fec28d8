#pragma once

// One run of the reference calculation (modReferenceProperties.h): the project, its active scan,
// the reference being built and the messages of its failures. Internal to the reference module.

#include "geometry/clsSplineFit.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"

#include <cstdint>
#include <memory>
#include <string>

namespace corvane::detail {

class ReferenceRun {
public:
    ReferenceRun(clsCorvane& project, bool useRawEnds);

    // The reference itself, from a scan or from a file. Each gives false after a failure that
    // has been told (or whose routine told it); the reference is then partly built.
    bool FromScan();
    bool FromFile();
    // What every reference but none gets then: the BCL of the reference and of the scan, the
    // ISO pitches of the reference, and for a scan reference the leading edge arcs.
    bool FinishBCL();
    bool FinishPitch();
    void ShareLEArcs();

private:
    // A scan reference, one row of the standard table across the blades chosen for it.
    struct RowSums;
    bool AngleShift(double& shift);
    bool MeasureRowBlade(int b, int k, RowSums& sums);
    void ApplyRowMeans(int k, const RowSums& sums);
    bool RebuildRow(int k);
    bool BlankRow(int k);
    bool BuildVariablePitch();
    double SectionPitch(double radialPos);

    // Messages under "Reference Data Error" (or the given title), with the blade number and,
    // where given, the section's r/R.
    void Tell(const std::string& what, int blade) const;
    void Tell(const std::string& what, int blade, int section, const char* title = nullptr) const;
    void Tell(const std::string& what, int blade, const clsPropeller& propeller, int section,
              const char* title = nullptr) const;

    clsCorvane& project_;
    clsPropeller& active_;
    std::shared_ptr<clsPropeller> reference_;
    std::int16_t rotation_;
    bool useRawEnds_;
    // The variable reference pitch over r/R, and its knot count (one knot: that pitch).
    clsSplineFit pitchSpline_;
    int pitchKnots_ = 0;
};

// The 16-bit booleans of the interface: any non-zero value is true.
inline bool IsSet(std::int16_t flag) {
    return flag != 0;
}

} // namespace corvane::detail
