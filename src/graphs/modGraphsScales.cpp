#include "graphs/modGraphsScales.h"

#include "graphs/clsCoordinateGraph.h"
#include "model/NumberFormat.h"
#include "support/ErrorTail.h"

#include <array>
#include <cmath>
#include <vector>

namespace corvane {

namespace {

constexpr GraphColour kRed = 0x0000FF;

// Tick lengths in twelfths of the height, by the tick's place within one unit.
constexpr std::array<int, 16> kInchTicks = {6, 2, 3, 2, 4, 2, 3, 2, 5, 2, 3, 2, 4, 2, 3, 2};
constexpr std::array<int, 10> kCentimetreTicks = {5, 3, 3, 3, 3, 4, 3, 3, 3, 3};

template <std::size_t N>
void Scale(DrawingSurface& surface, double centre, const GraphOptions& options,
           const std::array<int, N>& pattern, const char* context) {
    ErrorTail tail(context);
    tail.Step([&] {
        clsCoordinateGraph graph;
        graph.SetDefaultFont(options.fontName, options.fontSize);
        graph.ClearAllDataSeries();
        graph.CreateGraph(surface, 1, kWhite);
        graph.SetPercentWindow(0, 0, 1, 1);
        graph.SetWin2PlotRatio(0, 0, 0, 0);
        graph.SetGraphConfiguration(false, 1);
        const double width = 2 * centre;
        const double heightRatio =
            surface.ScaleWidth() > 0 ? surface.ScaleHeight() / surface.ScaleWidth() : 0.1;
        const double height = heightRatio * width;
        const double step = 1.0 / static_cast<double>(N);
        int series = 0;
        std::vector<double> numberX, numberY;
        std::vector<std::string> numbers;
        const int ticks = static_cast<int>(std::floor(width / step + 1e-9));
        for (int i = 0; i <= ticks; ++i) {
            const std::size_t place = static_cast<std::size_t>(i) % N;
            const double x = i * step;
            const double length = pattern[place] * height / 12;
            const int s = series++;
            graph.SetDataSeriesConfiguration(s, true, true, false, false, false, false, false);
            graph.SetLineStyle(s, 0, 0, place == 0 || place == N / 2 ? 3 : 2, 0);
            graph.SetLineData(s, {x, x}, {height, height - length});
            if (place == 0) {
                numberX.push_back(x);
                numberY.push_back(height - length);
                numbers.push_back(std::to_string(i / static_cast<int>(N)));
            }
        }
        int s = series++;
        graph.SetDataSeriesConfiguration(s, true, true, false, false, false, false, false);
        graph.SetLineStyle(s, 0, 0, 4, 0);
        graph.SetLineData(s, {0, width}, {height, height});
        s = series++;
        graph.SetDataSeriesConfiguration(s, true, false, true, false, false, false, false);
        graph.SetMarkerStyle(s, -1, 5, 5, 1, 0, -1, 1, 5, options.fontName, options.fontSize, 0, 255);
        graph.SetMarkerData(s, numberX, numberY, numbers);
        s = series++;
        graph.SetDataSeriesConfiguration(s, true, true, false, false, false, false, false);
        graph.SetLineStyle(s, 0, 0, 3, kRed);
        graph.SetLineData(s, {centre, centre}, {0, height});
        graph.AutoAxes(0, 0, 0, width, 0, height, 0, -1, -1, 0, 0, false, false, 8.75);
        graph.PlotAll();
        graph.Refresh();
    });
}

} // namespace

void CreateInchScale(DrawingSurface& surface, double centre, const GraphOptions& options) {
    Scale(surface, centre, options, kInchTicks, "creating inch scale");
}

void CreateCentimeterScale(DrawingSurface& surface, double centre, const GraphOptions& options) {
    Scale(surface, centre, options, kCentimetreTicks, "creating centimeter scale");
}

std::string NearestBinaryFraction(double value) {
    const double sign = value < 0 ? -1 : 1;
    const double v = std::fabs(value);
    long long whole = static_cast<long long>(std::floor(v));
    long long numerator = std::llround((v - static_cast<double>(whole)) * 128);
    if (numerator == 128) {
        ++whole;
        numerator = 0;
    }
    long long denominator = 128;
    while (numerator != 0 && numerator % 2 == 0) {
        numerator /= 2;
        denominator /= 2;
    }
    std::string text = sign < 0 && (whole != 0 || numerator != 0) ? "-" : "";
    if (whole != 0 || numerator == 0) {
        text += std::to_string(whole);
    }
    if (numerator != 0) {
        text += (whole != 0 ? " " : "") + std::to_string(numerator) + "/" + std::to_string(denominator);
    }
    return text;
}

} // namespace corvane
