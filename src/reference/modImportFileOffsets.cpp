// Surfaces from the panel pitches of a ppp reference, and the resampling of its sections onto
// the standard radii.
#include "reference/modImportFile.h"

#include "geometry/modISOPitch.h"
#include "geometry/modLocalPitch.h"
#include "geometry/modPanelCount.h"
#include "geometry/modPropellerProperties.h"
#include "geometry/modScanDataUtilities.h"
#include "geometry/modSplineFit.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <numeric>

namespace corvane {

namespace {

// Diameter on which the sections' radii are taken: the marked one of the project, or the
// propeller's own where there is no project diameter.
double WorkingDiameter(const clsPropeller& propeller) {
    if (gProject && gProject->MarkedDiameter() > 0.0) {
        return gProject->MarkedDiameter();
    }
    return propeller.Diameter();
}

std::int16_t Rotation() {
    return gProject ? gProject->RotationIndex() : std::int16_t{0};
}

// Angle of the helix of `pitch` on the cylinder of `radius`, radians. atan2 rather than
// atan(pitch / (2 pi r)): the same for every real section, and no division at the axis.
double HelixAngle(double pitch, double radius) {
    return std::atan2(pitch, 2.0 * gPi * radius);
}

// Flat offsets of one section from its panels, offset 0 at the trailing edge on the chord
// line. Gives the closing error: the height of the leading edge above the chord line.
double PanelOffsets(clsSection& section, double chord, double pitch, double radius) {
    int n = section.SegmentPanelCount();
    std::vector<double> panels = PanelPitchesOnGrid(section, pitch, n < 1 ? 1 : n);
    n = static_cast<int>(panels.size());
    const double width = chord / n;
    const double chordAngle = HelixAngle(pitch, radius);
    section.SetRawOffsetCount(n + 1);
    section.SetRawOffsetX(0, 0.0);
    section.SetRawOffsetY(0, 0.0);
    double y = 0.0;
    for (int j = 0; j < n; ++j) {
        y += width * std::tan(HelixAngle(panels[static_cast<std::size_t>(j)], radius) - chordAngle);
        section.SetRawOffsetX(j + 1, static_cast<double>(j + 1) / n * chord);
        section.SetRawOffsetY(j + 1, y);
    }
    return y;
}

// Blades 1 on: copies of blade 0 on generator lines spaced evenly round the hub, at blade 0's
// axial position; every point turned with its blade.
void CopyBladeZeroToOthers(clsPropeller& propeller) {
    const std::shared_ptr<clsBlades> blade0 = propeller.Blades(0);
    const int blades = propeller.BladeCount();
    for (int i = 1; i < blades; ++i) {
        const double angle = static_cast<double>(i) / blades * 360.0;
        std::shared_ptr<clsBlades> blade = blade0->CopyClass();
        blade->SetGLPositionThetaDeg(angle);
        blade->SetGLPositionAxialX(blade0->GLPositionAxialX());
        for (int k = 0; k < blade->SectionCount(); ++k) {
            const std::shared_ptr<clsSection> from = blade0->Section(k);
            const std::shared_ptr<clsSection> to = blade->Section(k);
            for (int j = 0; j < to->RawOffsetCount(); ++j) {
                to->SetThetaDeg(j, Wrap360(from->ThetaDeg(j) + angle));
            }
        }
        propeller.SetBlades(i, blade);
    }
}

// One quantity of blade 0 splined over r/R at the standard radii. The points go in by rising
// r/R, whatever order the sections stand in.
bool Resample(const std::vector<std::size_t>& order, const std::vector<double>& radialPos,
              const std::vector<double>& values, std::vector<double>& out) {
    std::vector<double> xs(order.size());
    std::vector<double> ys(order.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        xs[i] = radialPos[order[i]];
        ys[i] = values[order[i]];
    }
    const std::vector<double> xq(gRadialPositions.begin(), gRadialPositions.end());
    out.assign(xq.size(), 0.0);
    return SplineInternalValues(static_cast<int>(xs.size()), xs, ys, static_cast<int>(xq.size()), xq, out, 0);
}

// The measures of the resplined reference: blade 0 is measured and the others become its copies
// again.
bool MeasureResplined(clsPropeller& propeller) {
    if (CalculatePropellerProperties(propeller, true, true) != 1) {
        return false;
    }
    const int sections = propeller.Blades(0)->SectionCount();
    for (int k = 0; k < sections; ++k) {
        if (CalcLocalPitchByNormal(Rotation(), propeller, 0, k, GetExportPanelCount(propeller, k), false) !=
            1) {
            return false;
        }
    }
    if (CalcISOBladePitch(propeller, 0) != 1 || CalcIntegratedBladePitch(propeller, 0) != 1) {
        return false;
    }
    CopyBladeZeroToOthers(propeller);
    return CalcISOPropellerPitch(propeller) == 1;
}

} // namespace

std::vector<double> PanelPitchesOnGrid(const clsSection& section, double sectionPitch, int panels) {
    const int have = section.SegmentPanelCount();
    std::vector<double> out(static_cast<std::size_t>(std::max(panels, 0)), sectionPitch);
    if (have < 1) {
        return out;
    }
    for (int j = 0; j < panels; ++j) {
        // The panel of the section that lies under the centre of new panel j.
        const int from = have == panels ? j : std::min(have - 1, static_cast<int>((j + 0.5) * have / panels));
        out[static_cast<std::size_t>(j)] = section.SegmentPanelPitch(from);
    }
    return out;
}

std::int32_t BuildPPPOffsets(clsPropeller& propeller, bool checkPitch) {
    ErrorTail tail("build the PPP file offsets");
    bool built = false;
    bool open = false;
    if (!tail.Step([&] {
            built = false;
            open = false;
            clsBlades& blade = *propeller.Blades(0);
            const double diameter = WorkingDiameter(propeller);
            for (int k = 0; k < blade.SectionCount(); ++k) {
                clsSection& section = *blade.Section(k);
                const double radius = diameter / 2.0 * blade.RadialPos(k);
                if (!(radius > 0.0) || !std::isfinite(radius)) {
                    // Nothing to wrap round: a section on the axis has no surface.
                    section.SetRawOffsetCount(0);
                    continue;
                }
                const double chord = blade.Chord(k);
                const double closing = PanelOffsets(section, chord, blade.Pitch(k), radius);
                if (checkPitch && !(std::fabs(closing) < chord * 0.001)) {
                    open = true;
                }
                if (Offsets2DToSurface3D(Rotation(), section, radius, blade.Pitch(k), chord, blade.RakeAft(k),
                                         blade.SkewHelix(k), blade.GLPositionAxialX(),
                                         blade.GLPositionThetaDeg()) != 1) {
                    return;
                }
            }
            CopyBladeZeroToOthers(propeller);
            built = true;
        })) {
        return 0;
    }
    if (open) {
        Prompts().MessageBox(
            "The pitch progression for one or more sections does not match the section pitch "
            "values. The existing data has been processed, however errors may occur...",
            MsgBox::OKOnly | MsgBox::Exclamation, "Missing Data");
    }
    return built ? 1 : 0;
}

std::int32_t ResplineSectionsToISORadii(clsPropeller& propeller) {
    ErrorTail tail("resplining sections to existing ISO r/R distribiton");
    bool resplined = false;
    if (!tail.Step([&] {
            resplined = false;
            clsBlades& blade = *propeller.Blades(0);
            const int count = std::max<int>(blade.SectionCount(), 0);
            const std::vector<double> radialPos = blade.RadialPosArray();
            std::vector<std::size_t> order(static_cast<std::size_t>(count));
            std::iota(order.begin(), order.end(), std::size_t{0});
            // NaN-proof ordering: a value that is not a number sorts as if it were 0.
            auto key = [&](std::size_t i) { return std::isnan(radialPos[i]) ? 0.0 : radialPos[i]; };
            std::stable_sort(order.begin(), order.end(),
                             [&](std::size_t a, std::size_t b) { return key(a) < key(b); });

            int panels = 0;
            for (int k = 0; k < count; ++k) {
                panels = std::max<int>(panels, blade.Section(k)->SegmentPanelCount());
            }
            std::vector<double> pitch;
            std::vector<double> chord;
            std::vector<double> rake;
            std::vector<double> skew;
            if (!Resample(order, radialPos, blade.PitchArray(), pitch) ||
                !Resample(order, radialPos, blade.ChordArray(), chord) ||
                !Resample(order, radialPos, blade.RakeAftArray(), rake) ||
                !Resample(order, radialPos, blade.SkewHelixArray(), skew)) {
                return;
            }
            // grid[k][j]: panel j of section k on the common grid; byPanel[j][row]: the pitch
            // of panel j at each standard radius.
            std::vector<std::vector<double>> grid(static_cast<std::size_t>(count));
            for (int k = 0; k < count; ++k) {
                grid[static_cast<std::size_t>(k)] =
                    PanelPitchesOnGrid(*blade.Section(k), blade.Pitch(k), panels);
            }
            std::vector<std::vector<double>> byPanel(static_cast<std::size_t>(panels));
            for (int j = 0; j < panels; ++j) {
                std::vector<double> values(static_cast<std::size_t>(count));
                for (int k = 0; k < count; ++k) {
                    values[static_cast<std::size_t>(k)] =
                        grid[static_cast<std::size_t>(k)][static_cast<std::size_t>(j)];
                }
                if (!Resample(order, radialPos, values, byPanel[static_cast<std::size_t>(j)])) {
                    return;
                }
            }

            const int rows = static_cast<int>(gRadialPositions.size());
            blade.SetSectionCount(static_cast<std::int16_t>(rows));
            for (int k = 0; k < rows; ++k) {
                const std::size_t row = static_cast<std::size_t>(k);
                auto section = std::make_shared<clsSection>();
                section->SetSegmentPanelCount(panels);
                for (int j = 0; j < panels; ++j) {
                    section->SetSegmentPanelPitch(j, byPanel[static_cast<std::size_t>(j)][row]);
                }
                blade.SetSection(k, section);
                blade.SetRadialPos(k, gRadialPositions[row]);
                blade.SetPitch(k, pitch[row]);
                blade.SetChord(k, chord[row]);
                blade.SetRakeAft(k, rake[row]);
                blade.SetSkewHelix(k, skew[row]);
            }
            resplined = true;
        }) ||
        !resplined) {
        return 0;
    }
    if (BuildPPPOffsets(propeller, false) != 1) {
        return 0;
    }
    bool measured = false;
    if (!tail.Step([&] { measured = MeasureResplined(propeller); })) {
        return 0;
    }
    return measured ? 1 : 0;
}

} // namespace corvane
