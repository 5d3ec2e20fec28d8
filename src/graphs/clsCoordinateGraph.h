#pragma once

// The one graph engine: a numbered list of data series (each may carry a line, markers, a
// filled area, a porcupine, a text label and a legend entry) drawn into one DrawingSurface with
// axes, ticks, grid and labels. It knows nothing of propellers; the builders of modGraphs fill it.
//
// A graph is made in a fixed order: ClearAllDataSeries, CreateGraph (or CreateGraphWithBG),
// SetPercentWindow, SetWin2PlotRatio, SetGraphConfiguration, the style and data setters of each
// series, then EqualAxes or AutoAxes, optionally TitleGraph, PlotAll and Refresh.
//
// Units: the window and everything on the picture box are in twips (clamped to +/-32000, the
// surface's 16-bit range), the anti-aliased layer works in pixels (twips / the surface's twips per
// pixel), data in world units. Colours are 0xBBGGRR; -1 in a label or fill colour means the
// series' line or marker colour. Drawing mode 0 draws everything with the picture box's lines
// (no areas, porcupines or fills); mode 1 draws lines, markers, areas and porcupines through the
// anti-aliased layer.

#include "graphs/DrawingSurface.h"
#include "graphs/GraphMath.h"
#include "graphs/clsGraphicsLineGDIpAA.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

class clsCoordinateGraph {
public:
    using Colour = std::int32_t;

    struct DataSeriesRecord {
        bool Enabled = false;
        bool LineLabelOn = false;
        std::string LineLabelText; // "<b>" anywhere makes the label bold and is not printed
        double LineLabelX = 0, LineLabelY = 0;
        int LineLabelAlign = 2;
        std::string LineLabelFont; // "" and -1 take the graph's default font and size
        double LineLabelSize = -1;
        Colour LineLabelColor = -1;
        Colour LineColor = 0;
        int LineDashStyle = 0; // 0 solid, 1 dash, 2 dot, 3 dash-dot, 5 invisible
        int LineSplined = 0;
        int LineWidth = 2;
        std::vector<double> LineX, LineY;
        bool PorcupineOn = false;
        Colour PorcupineColor = 0;
        int PorcupineDashStyle = 0, PorcupineSplined = 0, PorcupineWidth = 1, PorcupineMode = 0;
        int PorcupinePointCount = 0;
        double PorcupineScale = -1, PorcupineResolution = 3;
        std::vector<double> PorcupineX, PorcupineY, PorcupineLength;
        std::vector<double> SplinedX, SplinedY;
        std::vector<CurvePiece> LinePieces;
        bool LineOn = false;
        Colour MarkerColor = 0, MarkerFillColor = -1;
        int MarkerDrawStyle = 0; // 5 hides the shape and keeps the labels
        int MarkerType = -1;     // 0 to 11, -1 none
        int MarkerSize = 5, MarkerWidth = 1;
        std::vector<double> MarkerX, MarkerY;
        std::vector<std::string> MarkerLabels;
        bool MarkerOn = false;
        int MarkerLabelOn = 0, MarkerLabelAlign = 2;
        std::string MarkerLabelFont;
        double MarkerLabelSize = -1;
        Colour MarkerLabelColor = -1;
        int MarkerOpacity = 150;
        Colour AreaColor = 0;
        int AreaOpacity = 100, AreaPattern = 0, AreaSplined = 0;
        bool AreaOn = false;
        std::vector<double> AreaX, AreaY, AreaSplinedX, AreaSplinedY;
        bool LegendOn = false;
        std::string LegendLabel, LegendFont;
        double LegendSize = 0;
        Colour LegendColor = 0;
    };

    // Without the anti-aliased layer mode 1 falls back to mode 0.
    explicit clsCoordinateGraph(bool antiAliasLayer = true);

    // The font of axis labels and of texts that name none.
    void SetDefaultFont(const std::string& name, double size);

    // Views of a drawn graph: each redraws axes and series on the new bounds.
    void Zoom(double factor, double centreX = -999, double centreY = -999);
    void Window(double xMin, double yMin, double xMax, double yMax);
    void Pan(double deltaX, double deltaY);

    void ClearErrorStack();
    bool ErrorsFound() const { return errorsFound_; }
    // Hands back the collected text and empties it; the flag stays.
    std::string Errors();
    // Appends a message unless it repeats what is collected.
    void AddError(const std::string& message);

    void ClearDataSeries(int index);
    // Five blank series in the default styles.
    void ClearAllDataSeries();
    int DataSeriesCount() const { return static_cast<int>(series_.size()); }
    const DataSeriesRecord& Series(int index) const;

    // Every setter that takes a series index grows the list to hold it.
    void SetLineLabelData(int index, const std::string& text, double x, double y, int align,
                          const std::string& font = "", double size = -1, Colour colour = -1);
    void SetDataSeriesConfiguration(int index, bool enabled, bool lineOn, bool markerOn, bool areaOn,
                                    bool lineLabelOn, bool legendOn, bool porcupineOn);
    void SetGraphConfiguration(bool legendEnabled, int legendPosition);
    void SetPorcupineStyle(int index, int splined, int dash, int width, Colour colour, int mode,
                           int pointCount, double scale, double resolution);
    void SetLineStyle(int index, int splined, int dash, int width, Colour colour);
    void SetMarkerStyle(int index, int type, int drawStyle, int size, int width, Colour colour,
                        Colour fillColour, int labelOn, int labelAlign, const std::string& font,
                        double labelSize, Colour labelColour, int opacity);
    void SetAreaStyle(int index, int splined, int opacity, Colour colour, int pattern);
    // An empty label becomes "Series " and the index.
    void SetLegendData(int index, const std::string& label, const std::string& font, double size,
                       Colour colour);
    void SetLineData(int index, const std::vector<double>& x, const std::vector<double>& y);
    void SetPorcupineData(int index, const std::vector<double>& x, const std::vector<double>& y,
                          const std::vector<double>& length);
    // Labels beyond the point count are ignored; missing ones are empty.
    void SetMarkerData(int index, const std::vector<double>& x, const std::vector<double>& y,
                       const std::vector<std::string>& labels = {});
    bool GetMarkerData(int index, std::vector<double>& x, std::vector<double>& y,
                       std::vector<std::string>& labels) const;
    void SetAreaData(int index, const std::vector<double>& x, const std::vector<double>& y);
    std::string MarkerLabel(int index, int point) const;
    void SetMarkerLabel(int index, int point, const std::string& text);

    void GetAxesDirection(int& x, int& y) const;
    void GetAxesLabelDirection(int& x, int& y) const;

    // Positions: 0 left of the plot, turned; 1 right of it, turned; 2 under it; 3 in its centre
    // top; 4 above it.
    void TitleGraph(const std::string& text, int position, const std::string& font = "", double size = -1,
                    Colour colour = -1, double angle = 0);

    // Takes the surface (kept by reference until the next CreateGraph), clears it and, in mode
    // 1, paints it with the back colour. With a background the picture is set and kept instead.
    void CreateGraph(DrawingSurface& surface, int mode, Colour backColour);
    void CreateGraphWithBG(DrawingSurface& surface, std::shared_ptr<const SurfaceImage> background, int mode);
    void EraseGraph();
    // Area, porcupine, line, marker of one series; PlotAll does every series in index order.
    void PlotDataSeries(int index);
    void PlotAll();
    void PlotArea(int index);
    void PlotPorcupine(int index, double resolution);
    void PlotLine(int index, double resolution);
    void PlotMarker(int index);
    // The drawing is complete: the surface publishes it and keeps it as its picture.
    void Refresh();

    void GetViewportPositionFromWorldCoordinates(double wx, double wy, double& x, double& y) const;
    void GetWorldCoordinatesFromViewportPosition(double x, double y, double& wx, double& wy) const;
    double GetWorldRatioX() const { return worldRatioX_; }
    double GetWorldRatioY() const { return worldRatioY_; }
    void GetWorldAxisExtents(double& xMin, double& xMax, double& yMin, double& yMax) const;
    void GetCurrentPlotBounds(double& xMin, double& xMax, double& yMin, double& yMax) const;
    // Twips on the surface (y downwards) of a world point, clamped to the 16-bit range.
    PointD WorldToTwips(double wx, double wy) const;

    // Fractions of the window left outside the plot, and of the surface that is the window.
    void SetWin2PlotRatio(double left, double top, double right, double bottom);
    void SetPercentWindow(double left, double top, double right, double bottom);
    bool IsLegendEnabled() const { return legendEnabled_; }
    int GetLegendPosition() const { return legendPosition_; }
    std::string GetLegendLabel(int index) const;

    // Widens the bounds to the points of the enabled series (line, marker and area points of
    // the parts that are on); the first point seen replaces the passed values.
    void DetectAxisBounds(double& xMin, double& xMax, double& yMin, double& yMax) const;
    // Axes with ticks stepped by the data; label directions: X 0..3 (2 and 3 under and above),
    // Y 0 left and 1 right of the axis; -1 draws no axis, -2 an axis without labels.
    void AutoAxes(int pointCount, int originMode, double xMin, double xMax, double yMin, double yMax,
                  int reserved, int xLabelDirection, int yLabelDirection, int xGrid, int yGrid, bool reverseY,
                  bool snap, double labelFontSize);
    // Axes with one world unit equally long on both; fixedStep above 0 sets the label step.
    void EqualAxes(int pointCount, int originMode, double xMin, double xMax, double yMin, double yMax,
                   bool reverseX, int xLabelDirection, int yLabelDirection, bool snap, int xGrid, int yGrid,
                   bool reverseY, double fixedStep);
    // The legend box; no builder of the program draws it.
    void PlotLegend();

    int DrawingMode() const { return drawingMode_; }
    double XTickStep() const { return xTickStep_; }
    double YTickStep() const { return yTickStep_; }
    double XLabelStep() const { return xLabelStep_; }
    double YLabelStep() const { return yLabelStep_; }
    int ViewWidth() const { return viewWidth_; }
    int ViewHeight() const { return viewHeight_; }
    // Left, top, right, bottom in twips.
    const std::array<int, 4>& PlotRect() const { return plotRect_; }

private:
    DataSeriesRecord& Record(int index);
    void DefaultStyles();
    void DerivePlotRect();
    void SetPlotBounds(double left, double bottom, double right, double top);
    double TwipsPerPixel() const;
    PointF ToPixels(double wx, double wy) const;
    void ApplyAxisRules(int pointCount, double& xMin, double& xMax, double& yMin, double& yMax);
    void FinishAxes(double xMin, double xMax, double yMin, double yMax, int xGrid, int yGrid,
                    double fontSize);
    void Redraw(double xMin, double xMax, double yMin, double yMax);
    void DrawXAxis();
    void DrawYAxis();
    void DrawXLabels();
    void DrawYLabels();
    void DrawGrid(bool vertical);
    void SurfaceLine(double x1, double y1, double x2, double y2, Colour colour, int width);
    void PlaceText(const std::string& text, double x, double y, int hMode, int vMode, int orientation);
    void PlaceLabel(const std::string& text, double wx, double wy, int align, double offset,
                    const std::string& font, double size, Colour colour);
    void SplineLine(DataSeriesRecord& s, double resolution);
    void SplineArea(DataSeriesRecord& s);
    void DrawShape(const DataSeriesRecord& s, double wx, double wy);
    void DrawDashed(const std::vector<PointD>& twips, int style, int width, Colour colour);
    void PorcupineSpike(const DataSeriesRecord& s, double x, double y, double angle, double length);
    void LegendEntry(const DataSeriesRecord& s, double x, double y, double ratio);

    std::vector<DataSeriesRecord> series_;
    clsGraphicsLineGDIpAA layer_;
    clsGraphicsLineGDIpAA::Handle graphics_ = 0;
    DrawingSurface* surface_ = nullptr;
    bool noAntiAliasLayer_ = false;
    int drawingMode_ = 0;
    std::string defaultFont_ = "Arial";
    double defaultFontSize_ = 9;

    bool equalAxesActive_ = false;
    bool reverseX_ = false, reverseY_ = false;
    int viewWidth_ = 0, viewHeight_ = 0;
    double worldRatioX_ = 1, worldRatioY_ = 1;
    double worldX0_ = 0, worldY0_ = 0, worldWidth_ = 1, worldHeight_ = 1;
    std::array<double, 4> window_{0, 0, 1, 1};       // left, bottom, right, top
    std::array<double, 4> plotBounds_{0, 0, 1, 1};   // left, bottom, right, top
    std::array<double, 4> marginRatios_{0, 0, 0, 0}; // left, bottom, right, top
    double xMin_ = 0, yMin_ = 0, xMax_ = 1, yMax_ = 1;
    std::array<int, 4> plotRect_{0, 0, 0, 0};   // left, top, right, bottom
    std::array<int, 4> windowRect_{0, 0, 0, 0}; // left, top, right, bottom
    double xOrigin_ = 0, yOrigin_ = 0;
    double xLabelStep_ = 1, yLabelStep_ = 1, xTickStep_ = 0.2, yTickStep_ = 0.2;
    int xTickCount_ = 0, yTickCount_ = 0;
    int xAxisDirection_ = 0, yAxisDirection_ = 0, xLabelDirection_ = 0, yLabelDirection_ = 0;
    int xGrid_ = 0, yGrid_ = 0;
    bool legendEnabled_ = false;
    int legendPosition_ = 1;
    bool errorsFound_ = false;
    std::string errorText_;
};

} // namespace corvane
