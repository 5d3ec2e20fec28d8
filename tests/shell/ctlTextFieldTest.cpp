#include "shell/ctlTextField.h"
#include "shell/ColorRef.h"

#include "shell/QtTestApp.h"

#include <QFontMetrics>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

namespace corvane {
namespace {

using test::PixelAt;
using test::Render;

using test::SendFocus;

class ctlTextFieldTest : public ::testing::Test {
protected:
    void SetUp() override { field.resize(200, 40); }

    QApplication& app = test::TestApp();
    ctlTextField field;
};

TEST_F(ctlTextFieldTest, FocusPaintsAThickHighlightFrameAndLosingItRaisesLostFocus) {
    const int middle = field.height() / 2;
    QImage image = Render(field);
    EXPECT_EQ(PixelAt(image, 0, middle).name(), QColor(Qt::black).name());
    EXPECT_EQ(PixelAt(image, 1, middle).name(), QColor(Qt::white).name());

    QSignalSpy lost(&field, &ctlTextField::LostFocus);
    SendFocus(field.TextBox(), QEvent::FocusIn);
    const QColor highlight = field.palette().color(QPalette::Active, QPalette::Highlight);
    image = Render(field);
    EXPECT_EQ(PixelAt(image, 0, middle).name(), highlight.name());
    EXPECT_EQ(PixelAt(image, 1, middle).name(), highlight.name());
    EXPECT_EQ(lost.count(), 0);

    SendFocus(field.TextBox(), QEvent::FocusOut);
    image = Render(field);
    EXPECT_EQ(PixelAt(image, 0, middle).name(), QColor(Qt::black).name());
    EXPECT_EQ(PixelAt(image, 1, middle).name(), QColor(Qt::white).name());
    EXPECT_EQ(lost.count(), 1);

    // Without a border the back colour runs to the edge.
    field.SetBorder(false);
    field.SetBackcolor(RGBColor(223, 223, 223));
    EXPECT_EQ(PixelAt(Render(field), 0, middle).name(), QColor(223, 223, 223).name());
}

TEST_F(ctlTextFieldTest, LittleButtonShowsWhileEnabledAndClicksOnRelease) {
    EXPECT_TRUE(field.ButtonRect().isNull());
    field.SetShowButton(true);
    const QRect button = field.ButtonRect();
    ASSERT_FALSE(button.isNull());
    EXPECT_LE(field.TextBox()->geometry().right(), button.left()); // the text stops short of it
    const QPoint corner = button.topLeft() + QPoint(3, 3);
    const QColor resting = PixelAt(Render(field), corner.x(), corner.y());

    QSignalSpy clicks(&field, &ctlTextField::Click);
    QTest::mousePress(&field, Qt::LeftButton, {}, button.center());
    EXPECT_EQ(PixelAt(Render(field), corner.x(), corner.y()).name(), QColor(224, 224, 224).name());
    EXPECT_EQ(clicks.count(), 0);
    QTest::mouseRelease(&field, Qt::LeftButton, {}, button.center());
    EXPECT_EQ(PixelAt(Render(field), corner.x(), corner.y()).name(), resting.name());
    EXPECT_EQ(clicks.count(), 1);

    // A press on the text part is no button press.
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(4, field.height() / 2));
    EXPECT_EQ(clicks.count(), 1);

    field.SetEnabled(false);
    EXPECT_TRUE(field.ButtonRect().isNull());
    EXPECT_EQ(PixelAt(Render(field), corner.x(), corner.y()).name(), QColor(Qt::white).name());
    EXPECT_TRUE(field.ShowButton());
}

TEST_F(ctlTextFieldTest, KeyPressCanSwallowOrReplaceTheTypedKey) {
    QSignalSpy changes(&field, &ctlTextField::Change);
    std::vector<int> seen;
    QObject::connect(&field, &ctlTextField::KeyPress, [&](int& keyCode) {
        seen.push_back(keyCode);
        if (keyCode == ',') {
            keyCode = '.'; // a comma typed as the decimal point
        } else if (keyCode != 8 && (keyCode < '0' || keyCode > '9') && keyCode != '.') {
            keyCode = 0;
        }
    });
    QTest::keyClicks(field.TextBox(), QStringLiteral("2x,5"));
    EXPECT_EQ(field.Text(), QStringLiteral("2.5"));
    QTest::keyClick(field.TextBox(), Qt::Key_Backspace);
    EXPECT_EQ(field.Text(), QStringLiteral("2."));
    QTest::keyClick(field.TextBox(), Qt::Key_Left); // no character: no KeyPress
    EXPECT_EQ(seen, (std::vector<int>{'2', 'x', ',', '5', 8}));
    EXPECT_EQ(changes.count(), 4);

    // Setting the text from the model raises Change too.
    field.SetText(QStringLiteral("Harbour Marine"));
    EXPECT_EQ(changes.count(), 5);
    field.SetLocked(true);
    QTest::keyClicks(field.TextBox(), QStringLiteral("7"));
    EXPECT_EQ(field.Text(), QStringLiteral("Harbour Marine"));
}

} // namespace
} // namespace corvane
