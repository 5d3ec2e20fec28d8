#include "shell/ctlPanelButton.h"
#include "shell/ColorRef.h"

#include "common/ServicesFixture.h"
#include "shell/QtTestApp.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

namespace corvane {
namespace {

using test::PixelAt;
using test::Render;

// The application's tool strip colours.
constexpr std::uint32_t kFrame = RGBColor(37, 64, 97);
constexpr std::uint32_t kFace = RGBColor(55, 96, 145);
constexpr std::uint32_t kPressed = RGBColor(228, 109, 10);
constexpr std::uint32_t kWhite = RGBColor(255, 255, 255);

// Decoded here by hand, so a fault in FromBGR shows in the paint tests too.
QString Name(std::uint32_t bgr) {
    return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
                  static_cast<int>(bgr >> 16))
        .name();
}

class ctlPanelButtonTest : public test::ServicesTest {
protected:
    void SetUp() override {
        test::ServicesTest::SetUp();
        button.resize(90, 44);
        button.SetPanelColors(kFrame, kFace, kFace, kPressed);
        button.SetForeColor(kWhite);
        button.SetCaption(QStringLiteral("SCAN"));
    }

    // Where the face shows clear of caption and frame line.
    QString FaceAt(const QImage& image) const { return PixelAt(image, 8, button.height() / 2).name(); }
    // Just inside the face's top edge: the frame line when it is shown.
    QString TopEdgeAt(const QImage& image) const { return PixelAt(image, button.width() / 2, 2).name(); }

    QApplication& app = test::TestApp(); // before any widget
    ctlPanelButton button;
};

TEST_F(ctlPanelButtonTest, PaintsFaceByStateWithTheFrameColourAround) {
    QImage image = Render(button);
    EXPECT_EQ(PixelAt(image, 0, 0).name(), Name(kFrame));
    EXPECT_EQ(FaceAt(image), Name(kFace));

    button.SetPressed(true);
    EXPECT_EQ(FaceAt(Render(button)), Name(kPressed));

    // Disabled shows the disabled face whatever Pressed says.
    button.SetPanelColors(kFrame, RGBColor(90, 90, 90), kFace, kPressed);
    button.SetEnabled(false);
    image = Render(button);
    EXPECT_EQ(FaceAt(image), Name(RGBColor(90, 90, 90)));
    EXPECT_FALSE(button.CaptionBold());
}

TEST_F(ctlPanelButtonTest, FrameLineFollowsShowBorderAndActiveBorder) {
    button.SetForeColor(0xFF0000); // blue, so the line is told from the white caption
    EXPECT_EQ(TopEdgeAt(Render(button)), Name(kFace));

    // Pressed without either flag: no line.
    button.SetPressed(true);
    EXPECT_EQ(TopEdgeAt(Render(button)), Name(kPressed));
    // ActiveBorder draws it only while pressed.
    button.SetActiveBorder(true);
    EXPECT_EQ(TopEdgeAt(Render(button)), QColor(0, 0, 255).name());
    button.SetPressed(false);
    EXPECT_EQ(TopEdgeAt(Render(button)), Name(kFace));
    // ShowBorder draws it in both states, BorderWidth pixels thick inside the face.
    button.SetShowBorder(true);
    button.SetBorderWidth(2);
    const QImage image = Render(button);
    EXPECT_EQ(PixelAt(image, button.width() / 2, 1).name(), QColor(0, 0, 255).name());
    EXPECT_EQ(PixelAt(image, button.width() / 2, 2).name(), QColor(0, 0, 255).name());
    EXPECT_EQ(PixelAt(image, button.width() / 2, 4).name(), Name(kFace));
}

// A toggle flips before Click. A momentary press shows for 100 ms, with nothing waiting inside
// the click, and is released before Click. A second click while the first is handled (its
// handler running a nested event loop, or a momentary press still showing) runs after the
// first has ended, never inside it; no click runs the event loop.
TEST_F(ctlPanelButtonTest, ClicksRunOneAtATime) {
    const struct {
        int action;
        bool clickInsideHandler;
    } cases[] = {{ctlPanelButton::ClickToggle, true},
                 {ctlPanelButton::ClickMomentary, true},
                 {ctlPanelButton::ClickMomentary, false}};
    for (const auto& c : cases) {
        ctlPanelButton panel;
        panel.SetClickAction(c.action);
        int clicks = 0;
        int depth = 0;
        int deepest = 0;
        bool pressedAtFirst = false;
        QObject::connect(&panel, &ctlPanelButton::Click, [&] {
            deepest = std::max(deepest, ++depth);
            if (++clicks == 1) {
                pressedAtFirst = panel.Pressed();
                if (c.clickInsideHandler) {
                    QTest::mouseClick(&panel, Qt::LeftButton);
                }
            }
            --depth;
        });
        const bool momentary = c.action == ctlPanelButton::ClickMomentary;
        QElapsedTimer timer;
        timer.start();
        QTest::mouseClick(&panel, Qt::LeftButton);
        EXPECT_TRUE(panel.Pressed()) << c.action;
        EXPECT_EQ(clicks, momentary ? 0 : 1) << c.action; // the second waits
        if (!c.clickInsideHandler) {
            QTest::mouseClick(&panel, Qt::LeftButton); // while the first press still shows
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return clicks == 2; }, 2000)) << c.action;
        EXPECT_GE(timer.elapsed(), momentary ? 195 : 0) << c.action; // two presses shown in turn
        EXPECT_EQ(deepest, 1) << c.action;
        EXPECT_EQ(pressedAtFirst, !momentary) << c.action;
        EXPECT_FALSE(panel.Pressed()) << c.action; // a toggle flipped twice
    }
    EXPECT_EQ(events.doEventsCalls, 0);
}

TEST_F(ctlPanelButtonTest, RadioClicksOnceAndLabelsDisabledButtonsAndDragsOffRaiseNothing) {
    QSignalSpy clicks(&button, &ctlPanelButton::Click);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(button.Pressed());
    EXPECT_EQ(clicks.count(), 1);
    button.SetPressed(false);
    clicks.clear();
    button.SetClickAction(ctlPanelButton::ClickNone);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_FALSE(button.Pressed());

    button.SetClickAction(ctlPanelButton::ClickToggle);
    QTest::mousePress(&button, Qt::LeftButton);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(200, 200)); // let go off the panel
    QTest::mouseClick(&button, Qt::RightButton);

    button.SetEnabled(false);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_FALSE(button.Pressed());
    EXPECT_EQ(clicks.count(), 0);
}

} // namespace
} // namespace corvane
