#include "graphs/GraphMath.h"

#include "graphs/DrawingSurface.h"
#include "model/NumberFormat.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

namespace corvane {

namespace {

// Twips of one pattern unit of the dashed line.
constexpr double kDashUnit = 60.0;

// Phase lengths of the dash styles, gap first; odd phases are dashes.
const std::vector<double>& DashPattern(int style) {
    static const std::vector<double> dash = {kDashUnit, 3 * kDashUnit};
    static const std::vector<double> dot = {kDashUnit, kDashUnit};
    static const std::vector<double> dashDot = {kDashUnit, 6 * kDashUnit, kDashUnit, 2 * kDashUnit};
    static const std::vector<double> none;
    switch (style) {
    case 1:
        return dash;
    case 2:
        return dot;
    case 3:
        return dashDot;
    default:
        return none;
    }
}

double RoundTo6(double v) {
    return std::round(v * 1e6) / 1e6;
}

} // namespace

double FittedTwipsPerPixel(double widthPixels, double heightPixels, double nominal) {
    constexpr double kLimit = 32000.0;
    const double largest = std::max(widthPixels, heightPixels);
    if (!(largest > 0) || largest * nominal <= kLimit) {
        return nominal;
    }
    return kLimit / largest;
}

int AxisExponent(double v) {
    const double a = std::max(std::fabs(v), 1e-16);
    return static_cast<int>(std::floor(std::log10(a)));
}

double TickStep(double lo, double hi) {
    const int p = std::max(AxisExponent(hi), AxisExponent(lo)) - 1;
    const double u = std::pow(10.0, p);
    const double h = hi / u;
    const double l = lo / u;
    double H = std::ceil(h + 1e-6 + (h - l) * 0.05);
    if (!(h > 0) && H >= 1) {
        H = 0;
    }
    double L = std::floor(l - 1e-6 - (h - l) * 0.05);
    if (!(l < 0) && L < 0) {
        L = 0;
    }
    const double bumpHi = hi > 0 ? 1.0 : 0.0;
    const double bumpLo = lo < 0 ? 1.0 : 0.0;
    if (std::fabs(H) < 10) {
        H += bumpHi;
    } else if (std::fabs(H) < 60) {
        H += 5 * bumpHi;
    } else {
        H += 10 * bumpHi;
    }
    // The lower end has no small case; the asymmetry is the axes' established look.
    if (std::fabs(L) < 60) {
        L -= 5 * bumpLo;
    } else {
        L -= 10 * bumpLo;
    }
    const double R = std::fabs(H - L);
    double base = 100;
    if (R <= 10) {
        base = 2;
    } else if (R <= 20) {
        base = 4;
    } else if (R <= 50) {
        base = 10;
    } else if (R <= 100) {
        base = 20;
    } else if (R <= 200) {
        base = 50;
    }
    return u * base / 10.0;
}

std::string AxisLabelText(double v, double min, double max, double step) {
    const int e = AxisExponent(std::max(std::fabs(min), std::fabs(max)));
    const int s = AxisExponent(step);
    if (e >= -4 && e <= 4) {
        const int decimals = s < 0 ? -s : 0;
        return FormatNumber(v,
                            decimals > 0 ? "0." + std::string(static_cast<std::size_t>(decimals), '0') : "0");
    }
    const std::string mantissa = FormatNumber(v / std::pow(10.0, e), "0.0");
    if (!(v > 0)) {
        return mantissa;
    }
    return mantissa + (e < 0 ? "e-" + std::to_string(-e) : "e+" + std::to_string(e));
}

std::vector<double> StepsFromZero(double lo, double hi, double step) {
    std::vector<double> out;
    if (!(step > 0) || !(hi >= lo) || !std::isfinite(lo) || !std::isfinite(hi)) {
        return out;
    }
    // The k-th multiple counted from 0, rounded to 6 decimals: the same positions a walk from 0
    // that rounds after each step reaches, without walking from 0 to a far-off axis.
    const double first = std::ceil(lo / step - 1e-9);
    const double last = std::floor(hi / step + 1e-9);
    // More than this many steps is no axis a surface can show.
    constexpr double kMaxSteps = 100000;
    if (last - first > kMaxSteps) {
        return out;
    }
    for (double k = first; k <= last; ++k) {
        out.push_back(RoundTo6(k * step));
    }
    return out;
}

namespace {

// Powers of ten by table: every point of every curve passes through Round15, and pow and log10
// per value would cost more than drawing it.
const std::array<double, 601> kPowersOfTen = [] {
    std::array<double, 601> p{};
    for (int k = -300; k <= 300; ++k) {
        p[static_cast<std::size_t>(k + 300)] = std::pow(10.0, k);
    }
    return p;
}();

double PowerOfTen(int k) {
    return kPowersOfTen[static_cast<std::size_t>(k + 300)];
}

// Their inverses: a multiplication where a division would stall every point; the result may lie
// one unit in the last place from the quotient, far below anything a surface shows.
const std::array<double, 601> kInversePowersOfTen = [] {
    std::array<double, 601> p{};
    for (int k = -300; k <= 300; ++k) {
        p[static_cast<std::size_t>(k + 300)] = 1.0 / std::pow(10.0, k);
    }
    return p;
}();

// Round to the nearest whole number for |x| below 2^51, without a library call: adding and
// taking away 1.5 x 2^52 leaves no fraction bits (IEEE arithmetic; the build allows no
// reassociation that would fold it away).
double RoundWhole(double x) {
    constexpr double kShifter = 6755399441055744.0;
    return (x + kShifter) - kShifter;
}

} // namespace

double Round15(double v) {
    const double a = std::fabs(v);
    if (!(a >= 1e-280 && a <= 1e280)) {
        return v; // 0, the extremes, NaN and infinities
    }
    // The decimal exponent from the binary one (log10 2 ~ 19728 / 65536), corrected by one
    // comparison either way.
    const int binary = static_cast<int>((std::bit_cast<std::uint64_t>(a) >> 52) & 0x7FF) - 1023;
    int e = (binary * 19728) >> 16;
    // Without branches: values cross decades all along a curve near the origin.
    e += static_cast<int>(a >= PowerOfTen(e + 1));
    e -= static_cast<int>(a < PowerOfTen(e));
    // 15 significant digits: the 15th digit to the units, rounded, back.
    const int shift = 14 - e;
    const double inverse = kInversePowersOfTen[static_cast<std::size_t>(shift + 300)];
    return RoundWhole(v * PowerOfTen(shift)) * inverse;
}

std::vector<CurvePiece> CutAtBounds(const std::vector<double>& xs, const std::vector<double>& ys, double xMin,
                                    double xMax, double yMin, double yMax) {
    std::vector<CurvePiece> pieces;
    CurvePiece run;
    const std::size_t n = std::min(xs.size(), ys.size());
    for (std::size_t i = 0; i < n; ++i) {
        const double x = xs[i];
        const double y = ys[i];
        const bool inside = x >= xMin && x <= xMax && y >= yMin && y <= yMax;
        if (inside) {
            run.X.push_back(Round15(x));
            run.Y.push_back(Round15(y));
        } else if (!run.X.empty()) {
            pieces.push_back(std::move(run));
            run = CurvePiece{};
        }
    }
    if (run.X.size() > 1) {
        pieces.push_back(std::move(run));
    }
    return pieces;
}

void DashedWalk(const std::vector<PointD>& points, int style,
                const std::function<void(PointD, PointD)>& stroke) {
    if (points.size() < 2) {
        return;
    }
    const std::vector<double>& pattern = DashPattern(style);
    if (pattern.empty()) {
        for (std::size_t i = 1; i < points.size(); ++i) {
            stroke(points[i - 1], points[i]);
        }
        return;
    }
    std::size_t phase = 0;
    double remaining = pattern[0];
    PointD at = points[0];
    for (std::size_t i = 1; i < points.size(); ++i) {
        const PointD to = points[i];
        for (;;) {
            const double dx = to.X - at.X;
            const double dy = to.Y - at.Y;
            const double distance = std::sqrt(dx * dx + dy * dy);
            const bool dash = phase % 2 == 1;
            if (remaining < distance) {
                const PointD cut{at.X + dx * remaining / distance, at.Y + dy * remaining / distance};
                if (dash) {
                    stroke(at, cut);
                }
                at = cut;
                phase = (phase + 1) % pattern.size();
                remaining = pattern[phase];
                continue;
            }
            if (dash && distance > 0) {
                stroke(at, to);
            }
            remaining -= distance;
            at = to;
            break;
        }
    }
}

const std::vector<PointD>& MarkerShape(int type) {
    static const std::array<std::vector<PointD>, 12> shapes = [] {
        std::array<std::vector<PointD>, 12> s;
        s[0] = {{-.5, -.5}, {-.5, .5}, {.5, .5}, {.5, -.5}};
        s[1] = {{-.6, -.4}, {0, .8}, {.6, -.4}};
        s[2] = {{-.6, .4}, {0, -.8}, {.6, .4}};
        s[3] = {{-.5, 0}, {0, .5}, {.5, 0}, {0, -.5}};
        for (int i = 0; i < 20; ++i) {
            const double a = 2 * 3.14159265358979 * i / 19.0;
            s[4].push_back({std::cos(a), std::sin(a)});
        }
        s[5] = {{0, 0}, {0, -.5}, {0, 0}, {.5, 0}, {0, 0}, {0, .5}, {0, 0}, {-.5, 0}, {0, 0}};
        s[6] = {{0, -.5}, {0, 0}, {0, .5}};
        s[7] = {{-.5, 0}, {0, 0}, {.5, 0}};
        s[8] = {{-.8, 0}, {.3, 0}, {.3, .5}, {.8, 0}, {.3, -.5}, {.3, 0}};
        s[9] = {{.8, 0}, {-.3, 0}, {-.3, -.5}, {-.8, 0}, {-.3, .5}, {-.3, 0}};
        s[10] = {{0, -.8}, {0, .3}, {-.5, .3}, {0, .8}, {.5, .3}, {0, .3}};
        s[11] = {{0, .8}, {0, -.3}, {.5, -.3}, {0, -.8}, {-.5, -.3}, {0, -.3}};
        return s;
    }();
    static const std::vector<PointD> none;
    return type >= 0 && type < 12 ? shapes[static_cast<std::size_t>(type)] : none;
}

LegendBox LayoutLegend(int position, double largestTextWidth, double firstOffset, int entries, double ratioX,
                       double ratioY, double plotLeft, double plotBottom, double plotRight, double plotTop) {
    LegendBox box;
    const double rx = ratioX != 0 ? ratioX : 1e-16;
    const double ry = ratioY != 0 ? ratioY : 1e-16;
    const double text = largestTextWidth / rx;
    box.width = plotLeft < 0 ? 540.0 / rx + text : 395.0 / rx + firstOffset + text;
    box.width = std::min(box.width, 0.65 * (plotRight - plotLeft));
    box.height = entries * 180.0 / ry;
    const double innerLeft = plotLeft + 75.0 / rx;
    const double innerRight = plotRight - 75.0 / rx;
    const double innerTop = plotTop - 75.0 / ry;
    const double innerBottom = plotBottom + 75.0 / ry;
    switch (position) {
    case 0:
        box.right = innerRight;
        box.top = innerTop;
        box.left = box.right - box.width;
        box.bottom = box.top - box.height;
        break;
    case 1:
        box.left = innerLeft;
        box.top = innerTop;
        box.right = box.left + box.width;
        box.bottom = box.top - box.height;
        break;
    case 2:
        box.right = innerRight;
        box.bottom = innerBottom;
        box.left = box.right - box.width;
        box.top = box.bottom + box.height;
        break;
    case 3:
        box.left = innerLeft;
        box.bottom = innerBottom;
        box.right = box.left + box.width;
        box.top = box.bottom + box.height;
        break;
    default:
        box.left = innerLeft;
        box.right = innerRight;
        box.top = innerTop;
        box.bottom = innerBottom;
        box.width = box.right - box.left;
        box.height = box.top - box.bottom;
        break;
    }
    return box;
}

std::string LegendLabelText(const std::string& label) {
    if (label.size() > 30) {
        return label.substr(0, 26) + "...]";
    }
    return label;
}

} // namespace corvane
