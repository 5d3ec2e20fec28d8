#include "shell/ctlComboField.h"
#include "shell/ColorRef.h"

#include "shell/QtTestApp.h"

#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>

namespace corvane {
namespace {

using test::PixelAt;
using test::Render;

using test::SendFocus;

class ctlComboFieldTest : public ::testing::Test {
protected:
    void SetUp() override {
        combo.resize(180, 32);
        for (const char* unit : {"Millimetres", "Metres", "Inches", "Feet"}) {
            combo.AddItem(QString::fromLatin1(unit));
        }
    }

    QApplication& app = test::TestApp();
    ctlComboField combo;
};

TEST_F(ctlComboFieldTest, AddsAtAnIndexKeepingTheSelectedRowAndSelectsWithoutClick) {
    QSignalSpy clicks(&combo, &ctlComboField::Click);
    QSignalSpy changes(&combo, &ctlComboField::Change);
    combo.SetListIndex(1);
    combo.SetItemData(1, 42);
    combo.AddItem(QStringLiteral("Centimetres"), 1);
    EXPECT_EQ(combo.NewIndex(), 1);
    EXPECT_EQ(combo.ListIndex(), 2); // still "Metres"
    EXPECT_EQ(combo.Text(), QStringLiteral("Metres"));
    EXPECT_EQ(combo.ItemData(2), 42);
    combo.AddItem(QStringLiteral("Yards"), 99); // past the end appends
    EXPECT_EQ(combo.List(5), QStringLiteral("Yards"));
    EXPECT_EQ(combo.List(6), QString());
    combo.SetListIndex(7); // out of range: nothing moves
    EXPECT_EQ(combo.ListIndex(), 2);
    combo.SetListIndex(-1);
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(changes.count(), 2);
    combo.Clear();
    EXPECT_EQ(combo.ListCount(), 0);
    EXPECT_EQ(combo.NewIndex(), -1);
}

TEST_F(ctlComboFieldTest, ArrowKeysStepTheSelectionWithoutWrapping) {
    QSignalSpy clicks(&combo, &ctlComboField::Click);
    QTest::keyClick(combo.TextBox(), Qt::Key_Up); // nothing selected, nothing above
    EXPECT_EQ(combo.ListIndex(), -1);
    QTest::keyClick(combo.TextBox(), Qt::Key_Down);
    EXPECT_EQ(combo.ListIndex(), 0);
    EXPECT_EQ(combo.Text(), QStringLiteral("Millimetres"));
    QTest::keyClick(combo.TextBox(), Qt::Key_Up);
    EXPECT_EQ(combo.ListIndex(), 0);
    combo.SetListIndex(3);
    QTest::keyClick(combo.TextBox(), Qt::Key_Down);
    EXPECT_EQ(combo.ListIndex(), 3);
    QTest::keyClick(combo.TextBox(), Qt::Key_Up);
    EXPECT_EQ(combo.Text(), QStringLiteral("Inches"));
    EXPECT_EQ(clicks.count(), 2);
}

TEST_F(ctlComboFieldTest, ArrowButtonTogglesTheListAndChoosingARowRaisesClick) {
    combo.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&combo));
    QSignalSpy clicks(&combo, &ctlComboField::Click);
    const QPoint arrow = combo.ButtonRect().center();
    QTest::mouseClick(&combo, Qt::LeftButton, {}, arrow);
    ASSERT_TRUE(combo.Dropped());
    QTest::mouseClick(&combo, Qt::LeftButton, {}, arrow);
    EXPECT_FALSE(combo.Dropped());

    combo.OpenCombo();
    ASSERT_TRUE(combo.Dropped());
    QListWidget* list = combo.ListBox();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    EXPECT_FALSE(combo.Dropped());
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_EQ(combo.Text(), QStringLiteral("Metres"));
    EXPECT_EQ(clicks.count(), 1);

    // Disabled: text, button and list together, and the arrow opens nothing.
    combo.SetEnabled(false);
    EXPECT_FALSE(combo.TextBox()->isEnabled());
    EXPECT_FALSE(combo.ListBox()->isEnabled());
    combo.OpenCombo();
    EXPECT_FALSE(combo.Dropped());
}

TEST_F(ctlComboFieldTest, FocusMovingIntoItsOwnListKeepsTheFocusLook) {
    QWidget page;
    auto* field = new ctlComboField(&page);
    auto* other = new QLineEdit(&page);
    field->AddItem(QStringLiteral("Right"));
    field->AddItem(QStringLiteral("Left"));
    field->setGeometry(10, 10, 160, 30);
    other->setGeometry(10, 60, 160, 30);
    page.show();
    QApplication::setActiveWindow(&page);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
    field->setFocus();
    EXPECT_TRUE(field->Focused());
    field->OpenCombo();
    ASSERT_TRUE(field->Dropped());
    EXPECT_TRUE(field->Focused());
    field->OpenCombo();
    EXPECT_FALSE(field->Dropped());
    EXPECT_TRUE(field->Focused());
    other->setFocus();
    EXPECT_FALSE(field->Focused());
}

} // namespace
} // namespace corvane
