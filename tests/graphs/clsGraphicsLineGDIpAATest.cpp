#include "graphs/clsGraphicsLineGDIpAA.h"
#include "graphs/RecordingSurface.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using Kind = SurfaceCall::Kind;

TEST(clsGraphicsLineGDIpAATest, HandlesAreKeptUntilDestroyedOrCleared) {
    clsGraphicsLineGDIpAA layer;
    EXPECT_EQ(layer.CreatePen(0xFF000000, 0), 0u);
    EXPECT_EQ(layer.ResourceCount(), 0u);
    const auto pen = layer.CreatePen(0xFF112233, 2.5f, 1);
    const auto brush = layer.CreateSolidBrush(0x80FFFFFF);
    EXPECT_EQ(layer.ResourceCount(), 2u);
    PenSpec props;
    ASSERT_TRUE(layer.GetPenProps(pen, props));
    EXPECT_EQ(props.argb, 0xFF112233u);
    EXPECT_EQ(props.width, 2.5f);
    EXPECT_EQ(props.dashStyle, 1);
    EXPECT_EQ(layer.GetBrushType(brush), kBrushSolid);
    EXPECT_FALSE(layer.DestroyBrush(pen)); // a pen is no brush
    EXPECT_TRUE(layer.DestroyPen(pen));
    EXPECT_FALSE(layer.DestroyPen(pen));
    EXPECT_TRUE(layer.DestroyBrush(brush));
    EXPECT_EQ(layer.Clear(), 0); // all gone already
    layer.CreateHatchBrush(2, 0xFF000000, 0xFFFFFFFF);
    layer.CreatePen(0xFF000000, 1);
    EXPECT_EQ(layer.Clear(), 2);
}

TEST(clsGraphicsLineGDIpAATest, ShapesFillFirstAndOutlineSecond) {
    RecordingSurface surface(100, 100);
    clsGraphicsLineGDIpAA layer;
    const auto g = layer.CreateHGraphics(surface);
    const auto pen = layer.CreatePen(0xFF0000FF, 1);
    const PointF square[4] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};

    EXPECT_EQ(layer.DrawLines(g, pen, nullptr, 3), 0);
    EXPECT_EQ(layer.DrawLines(g, pen, square, 0), 0);
    EXPECT_TRUE(surface.calls.empty());

    // Pen only: the outline alone.
    EXPECT_EQ(layer.DrawPolygon(g, square, 4, 0, pen, 0, 0), 1);
    ASSERT_EQ(surface.calls.size(), 1u);
    EXPECT_TRUE(surface.calls[0].pen);
    EXPECT_FALSE(surface.calls[0].brush);

    // A colour without a brush fills through a brush of its own, then the pen outlines.
    surface.calls.clear();
    layer.DrawPolygon(g, square, 4, 0, pen, 0xFF00FF00, 0);
    ASSERT_EQ(surface.calls.size(), 2u);
    EXPECT_TRUE(surface.calls[0].brush);
    EXPECT_EQ(surface.calls[0].fill, 0xFF00FF00u);
    EXPECT_TRUE(surface.calls[1].pen);
    EXPECT_EQ(layer.ResourceCount(), 1u); // the brush of the call is gone with it

    // The plural rectangles outline with the colour.
    surface.calls.clear();
    const RectF rect{0, 0, 5, 5};
    layer.DrawRectangles(g, &rect, 1, 0, 0xFFFF0000, 0);
    ASSERT_EQ(surface.calls.size(), 1u);
    EXPECT_TRUE(surface.calls[0].pen);
    EXPECT_EQ(surface.calls[0].colour, 0xFFFF0000u);
}

TEST(clsGraphicsLineGDIpAATest, AnUnavailableLayerDoesNothing) {
    RecordingSurface surface(100, 100);
    clsGraphicsLineGDIpAA layer(false);
    EXPECT_EQ(layer.Token(), 0u);
    const auto g = layer.CreateHGraphics(surface);
    const auto pen = layer.CreatePen(0xFF000000, 1);
    EXPECT_EQ(g, 0u);
    EXPECT_EQ(pen, 0u);
    const PointF line[2] = {{0, 0}, {1, 1}};
    EXPECT_EQ(layer.DrawLines(g, pen, line, 2), 0);
    EXPECT_EQ(layer.EraseHGraphics(g, 0xFFFFFFFF), 0);
    EXPECT_TRUE(surface.calls.empty());
}

TEST(clsGraphicsLineGDIpAATest, QueriesAndSettersTakeOnlyLiveHandlesOfTheirKind) {
    clsGraphicsLineGDIpAA layer;
    const auto pen = layer.CreatePen(0xFF000000, 1);
    const auto solid = layer.CreateSolidBrush(0xFF010203);
    const auto hatch = layer.CreateHatchBrush(1, 0xFF0000FF, 0xFFFFFFFF);
    const auto line = layer.CreateGradientLineBrush(0, 0, 10, 0, 0xFF000000, 0xFFFFFFFF, 0);
    const auto rect = layer.CreateGradientBrushRect(0, 0, 10, 10, 0xFF000000, 0xFFFFFFFF, 1, 0);
    std::uint32_t a = 0, b = 0;
    EXPECT_TRUE(layer.GetSolidBrushColorARGB(solid, a));
    EXPECT_EQ(a, 0xFF010203u);
    EXPECT_TRUE(layer.GetHatchBrushColors(hatch, a, b));
    EXPECT_EQ(b, 0xFFFFFFFFu);
    EXPECT_TRUE(layer.SetGradientColors(line, 0xFF112233, 0xFF445566));
    EXPECT_TRUE(layer.GetGradientLineBrushColors(line, a, b));
    EXPECT_EQ(a, 0xFF112233u);
    EXPECT_TRUE(layer.SetGradientWrapMode(rect, 4));
    // Each query or setter refuses a pen, a brush of another kind and a handle that is gone.
    for (const auto wrong : {pen, hatch, 0u, 9999u}) {
        EXPECT_FALSE(layer.GetSolidBrushColorARGB(wrong, a)) << wrong;
        EXPECT_FALSE(layer.GetGradientLineBrushColors(wrong, a, b)) << wrong;
        EXPECT_FALSE(layer.SetGradientColors(wrong, 0, 0)) << wrong;
        EXPECT_FALSE(layer.SetGradientWrapMode(wrong, 0)) << wrong;
    }
    for (const auto wrong : {solid, 0u, 9999u}) {
        EXPECT_FALSE(layer.GetHatchBrushColors(wrong, a, b)) << wrong;
        EXPECT_FALSE(layer.SetPenColor(wrong, 0)) << wrong;
        EXPECT_FALSE(layer.SetPenWidth(wrong, 1)) << wrong;
        EXPECT_FALSE(layer.SetPenEndCaps(wrong, 1, 2)) << wrong;
    }
    EXPECT_FALSE(layer.SetPenWidth(pen, 0)) << "a pen keeps a width above 0";
    EXPECT_TRUE(layer.SetPenColor(pen, 0xFF00FF00) && layer.SetPenWidth(pen, 3) &&
                layer.SetPenEndCaps(pen, 1, 2) && layer.SetPenEndCaps(pen, 0, 1));
    PenSpec props;
    ASSERT_TRUE(layer.GetPenProps(pen, props));
    EXPECT_EQ(props.argb, 0xFF00FF00u);
    EXPECT_EQ(props.width, 3.0f);
    EXPECT_EQ(props.endCap, 2);
    EXPECT_EQ(props.startCap, 1);
    EXPECT_TRUE(layer.DestroyBrush(line));
    EXPECT_FALSE(layer.GetGradientLineBrushColors(line, a, b)) << "a destroyed brush answers nothing";
}

} // namespace
} // namespace corvane
