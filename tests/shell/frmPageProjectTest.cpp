#include "shell/frmPageProject.h"

#include "common/ServicesFixture.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "shell/ColorRef.h"
#include "shell/QtTestApp.h"
#include "shell/ctlComboField.h"
#include "shell/ctlPanelButton.h"
#include "shell/ctlTextField.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>

namespace corvane {
namespace {

constexpr int kMetres = 1;

class frmPageProjectTest : public test::ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        ASSERT_EQ(CreateNewProject(), 1);
        gUnits->SetPropLengthIndex(kMetres);
        page = std::make_unique<frmPageProject>();
        ASSERT_EQ(page->RefreshProjectFormData(), 1);
        gProjectDirty = false;
        GraphsStale = false;
    }

    void TearDown() override {
        page.reset();
        ServicesTest::TearDown();
    }

    template <class T> T* Child(const char* name) {
        T* child = page->findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(child, nullptr) << name;
        return child;
    }
    ctlTextField* Text(const char* name) { return Child<ctlTextField>(name); }
    ctlComboField* Combo(const char* name) { return Child<ctlComboField>(name); }

    // Types as the technician does, key by key, after selecting what the field held.
    void Type(const char* name, const QString& keys) {
        QLineEdit* box = Text(name)->TextBox();
        box->selectAll();
        QTest::keyClicks(box, keys);
    }
    // Chooses a row of a list with the mouse.
    void Choose(const char* name, int row) {
        QListWidget* list = Combo(name)->ListBox();
        emit list->itemClicked(list->item(row));
    }
    bool MarkShown(const char* check) { return !Child<QLabel>(check)->isHidden(); }
    QColor CaptionColour(const char* caption) {
        return Child<QLabel>(caption)->palette().color(QPalette::WindowText);
    }
    void AddScans(int right, int left) {
        gProject->SetRightScanCount(static_cast<std::int16_t>(right));
        if (left > 0) {
            gProject->SetLeftScanCount(static_cast<std::int16_t>(left));
        }
    }

    QApplication& app = test::TestApp();
    std::unique_ptr<frmPageProject> page;
};

TEST_F(frmPageProjectTest, RefreshShowsTheModelWithoutMarkingItChangedButTypingDoes) {
    gProject->SetCustomer("Harbour Tugs");
    gProject->SetProjectID("P-17");
    gProject->SetMarkedDiameter(2.4);
    gProject->SetBladeCount(5);
    gProject->SetRotationIndex(1);
    gProject->SetNotes("first\r\nsecond");
    gISO484->SetISOClassIndex(3);
    QSignalSpy title(page.get(), &frmPageProject::titleChanged);

    ASSERT_EQ(page->RefreshProjectFormData(), 1);
    EXPECT_EQ(Text("txtCustomer")->Text(), QStringLiteral("Harbour Tugs"));
    EXPECT_EQ(Text("txtDiameter")->Text(), QStringLiteral("2.4000"));
    EXPECT_EQ(Combo("cboBladeCount")->Text(), QStringLiteral("5"));
    EXPECT_EQ(Combo("cboRotation")->Text(), QStringLiteral("Left"));
    EXPECT_EQ(Combo("cboISOClass")->Text(), QStringLiteral("Class 2"));
    EXPECT_EQ(Child<QPlainTextEdit>("txtNotes")->toPlainText(), QStringLiteral("first\nsecond"));
    EXPECT_EQ(title.count(), 1);
    EXPECT_FALSE(gProjectDirty);
    EXPECT_FALSE(GraphsStale);

    Type("txtVessel", QStringLiteral("Tug 4"));
    EXPECT_EQ(gProject->Vessel(), "Tug 4");
    EXPECT_TRUE(gProjectDirty);
    EXPECT_TRUE(GraphsStale);
    EXPECT_EQ(title.count(), 1); // the vessel is not in the title

    Type("txtProjectID", QStringLiteral("P-18"));
    EXPECT_EQ(gProject->ProjectID(), "P-18");
    EXPECT_GT(title.count(), 1);

    Child<QPlainTextEdit>("txtJobNotes")->setPlainText(QStringLiteral("a\nb"));
    EXPECT_EQ(gProject->JobNotes(), "a\r\nb");

    gProjectDirty = false;
    Choose("cboRotation", 0);
    EXPECT_EQ(gProject->RotationIndex(), 0);
    EXPECT_TRUE(gProjectDirty);
}

TEST_F(frmPageProjectTest, RequiredMarksFollowTheFieldsAndTheChecks) {
    // A new project lacks all four; clearing takes the marks away and always passes.
    EXPECT_TRUE(MarkShown("lblCheckCustomerName"));
    EXPECT_EQ(page->CheckProjectData(true), 1);
    EXPECT_FALSE(MarkShown("lblCheckPitch"));

    Type("txtCustomer", QStringLiteral("   "));
    EXPECT_TRUE(MarkShown("lblCheckCustomerName")); // blanks do not count
    EXPECT_EQ(CaptionColour("lblCustomerName"), QColor(255, 0, 0));
    EXPECT_EQ(gProject->Customer(), "   "); // written all the same
    Type("txtCustomer", QStringLiteral("Acme"));
    EXPECT_EQ(CaptionColour("lblCustomerName"), QColor(Qt::black));

    EXPECT_EQ(page->CheckProjectData(false), 0);
    EXPECT_TRUE(page->Marks().customer && !page->Marks().pitch && page->Marks().innerRadius);
    EXPECT_EQ(CaptionColour("lblPitch"), QColor(255, 0, 0));

    Type("txtProjectID", QStringLiteral("J1"));
    Type("txtPitch", QStringLiteral("1200 RH"));
    Type("txtDiameter", QStringLiteral("0"));
    EXPECT_TRUE(MarkShown("lblCheckDiameter")); // a diameter must be above 0
    Type("txtDiameter", QStringLiteral("1.8"));
    EXPECT_FALSE(MarkShown("lblCheckDiameter"));
    EXPECT_EQ(page->CheckProjectData(false), 1);

    // An inner radius read from a file outside 1..40 fails the check once it is on.
    gISO484->SetISOIncludeInnerRadiusIndex(1);
    gISO484->SetISOInnerRadius(45);
    EXPECT_EQ(page->CheckProjectData(false), 0);
    EXPECT_TRUE(MarkShown("lblCheckInnerRadius"));

    page->MarkSaveAsFields(true, false);
    EXPECT_TRUE(MarkShown("lblCheckDiameter"));
    EXPECT_FALSE(MarkShown("lblCheckCustomerName"));
    page->MarkSaveAsFields(false, true);
    EXPECT_FALSE(MarkShown("lblCheckDiameter"));
    EXPECT_TRUE(MarkShown("lblCheckCustomerName"));
}

TEST_F(frmPageProjectTest, DiameterInMetresChoosesTheStandardAndIsFilteredAndReformatted) {
    Type("txtDiameter", QStringLiteral("2.4"));
    EXPECT_DOUBLE_EQ(gProject->MarkedDiameter(), 2.4);
    EXPECT_EQ(gISO484->ISOStandardIndex(), 1);
    Type("txtDiameter", QStringLiteral("2.6"));
    EXPECT_EQ(gISO484->ISOStandardIndex(), 0); // the 2.5 m boundary is modISO484Test's

    // 2.6 ft is well under 2.5 m: the unit decides as much as the number.
    Type("txtDiameter", QStringLiteral("2.6"));
    Choose("cboUnits", 0);
    EXPECT_EQ(gUnits->PropLengthIndex(), 0);
    EXPECT_EQ(gISO484->ISOStandardIndex(), 1);

    // Letters, blanks, "$" and the other decimal character never reach the field.
    Type("txtDiameter", QStringLiteral("1a2 $,3.5x"));
    EXPECT_EQ(Text("txtDiameter")->Text(), QStringLiteral("123.5"));
    QFocusEvent leave(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(Text("txtDiameter")->TextBox(), &leave);
    EXPECT_EQ(Text("txtDiameter")->Text(), QStringLiteral("123.5000")); // "0.0000" of feet

    // A refresh sets the standard from the stored diameter without marking anything.
    gUnits->SetPropLengthIndex(kMetres);
    gProject->SetMarkedDiameter(3.0);
    gProjectDirty = false;
    page->RefreshProjectFormData();
    EXPECT_EQ(gISO484->ISOStandardIndex(), 0);
    EXPECT_FALSE(gProjectDirty);
}

TEST_F(frmPageProjectTest, ExistingDiameterOfAProjectWithScansChangesOnlyThroughTheGuard) {
    AddScans(1, 0);
    page->RefreshProjectFormData();
    // No diameter yet: the first one is typed freely, whole.
    Type("txtDiameter", QStringLiteral("2.4"));
    EXPECT_DOUBLE_EQ(gProject->MarkedDiameter(), 2.4);
    EXPECT_TRUE(prompts.History().empty());

    page->RefreshProjectFormData();
    gProjectDirty = false;
    prompts.Expect(Answer::Cancel, "Propeller scans have already been created");
    QTest::keyClicks(Text("txtDiameter")->TextBox(), QStringLiteral("9"));
    ASSERT_EQ(prompts.History().size(), 1u);
    EXPECT_EQ(prompts.History()[0].text,
              "Warning!\r\nPropeller scans have already been created with a diameter of 2.4000.\r\n\r\n"
              "Changing the diameter will invalidate your measurements on prior scans.\r\n\r\n"
              "Do you want to change the propeller diameter for this project?");
    EXPECT_EQ(prompts.History()[0].title, "Warning! Propeller diameter change");
    EXPECT_EQ(Text("txtDiameter")->Text(), QStringLiteral("2.4000"));
    EXPECT_DOUBLE_EQ(gProject->MarkedDiameter(), 2.4);
    EXPECT_FALSE(gProjectDirty);

    // A paste is no way around it.
    prompts.Expect(Answer::Cancel, "Propeller scans have already been created");
    Text("txtDiameter")->TextBox()->setText(QStringLiteral("7"));
    EXPECT_EQ(Text("txtDiameter")->Text(), QStringLiteral("2.4000"));
    EXPECT_DOUBLE_EQ(gProject->MarkedDiameter(), 2.4);

    // OK asks for the new value.
    prompts.Expect(Answer::OK, "Propeller scans have already been created");
    prompts.ExpectInput(std::string("2.6"), "Enter the new diameter:");
    QTest::keyClicks(Text("txtDiameter")->TextBox(), QStringLiteral("9"));
    EXPECT_EQ(prompts.History().back().title, "Propeller diameter change");
    EXPECT_EQ(Text("txtDiameter")->Text(), QStringLiteral("2.6"));
    EXPECT_DOUBLE_EQ(gProject->MarkedDiameter(), 2.6);
    EXPECT_EQ(gISO484->ISOStandardIndex(), 0);
    EXPECT_TRUE(gProjectDirty);
}

TEST_F(frmPageProjectTest, BladeCountOfAProjectWithScansAsksAndARefusalKeepsTheScans) {
    Choose("cboBladeCount", 0); // without scans: at once
    EXPECT_EQ(gProject->BladeCount(), 2);
    EXPECT_TRUE(prompts.History().empty());
    gProject->SetBladeCount(4);
    gProjectDirty = false;
    AddScans(2, 1);
    page->RefreshProjectFormData();
    const auto firstBlade = gProject->RightScan(0)->Blades(0);
    QSignalSpy changed(page.get(), &frmPageProject::bladeCountChanged);

    prompts.Expect(Answer::No, "Do you wish to change blade count?");
    Choose("cboBladeCount", 3); // "5"
    ASSERT_EQ(prompts.History().size(), 1u);
    EXPECT_EQ(prompts.History()[0].text,
              "Existing data for some blades may be lost.\r\nDo you wish to change blade count?");
    EXPECT_EQ(prompts.History()[0].style, MsgBox::YesNo | MsgBox::Question);
    EXPECT_EQ(Combo("cboBladeCount")->Text(), QStringLiteral("4"));
    EXPECT_EQ(gProject->LeftScan(0)->BladeCount(), 4);
    EXPECT_EQ(gProject->RightScan(0)->Blades(0), firstBlade);
    EXPECT_FALSE(gProjectDirty);
    EXPECT_EQ(changed.count(), 0);

    prompts.Expect(Answer::Yes, "Do you wish to change blade count?");
    Choose("cboBladeCount", 3);
    EXPECT_EQ(gProject->RightScan(1)->BladeCount(), 5);
    EXPECT_EQ(gProject->LeftScan(0)->BladeCount(), 5); // the other hand follows too
    EXPECT_TRUE(gProjectDirty);
    EXPECT_TRUE(GraphsStale);
    EXPECT_EQ(changed.count(), 1);

    // The same count again asks nothing.
    Choose("cboBladeCount", 3);
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(frmPageProjectTest, TowardsTipStoresThreeAndReopensAsTowardsHub) {
    gStandardOffset = 5;
    gDogLegOffset = 30;
    Choose("cboScanArmOffset", 1);
    EXPECT_EQ(gScanArmOffsetIndex, 1);
    EXPECT_DOUBLE_EQ(ActiveProbeOffsetSide, -30);
    EXPECT_DOUBLE_EQ(ActiveProbeOffsetRadial, 0);
    EXPECT_TRUE(gProjectDirty);

    Choose("cboScanArmOffset", 4);
    EXPECT_EQ(Combo("cboScanArmOffset")->Text(), QStringLiteral("Towards tip [Outer]"));
    EXPECT_EQ(gScanArmOffsetIndex, 3);
    EXPECT_DOUBLE_EQ(ActiveProbeOffsetSide, 5);
    EXPECT_DOUBLE_EQ(ActiveProbeOffsetRadial, 30);

    ASSERT_EQ(CreateNewProject(), 1);
    gDogLegOffset = 30; // the station's options were read again with the project
    page->RefreshProjectFormData();
    EXPECT_EQ(Combo("cboScanArmOffset")->Text(), QStringLiteral("Towards hub [Inner]"));
    EXPECT_EQ(gScanArmOffsetIndex, 3);
    EXPECT_DOUBLE_EQ(ActiveProbeOffsetRadial, -30);
}

TEST_F(frmPageProjectTest, InnerRadiusSwitchesTheFieldAndKeepsItsValueWithinLimits) {
    ctlTextField* field = Text("txtInnerRad");
    ctlPanelButton* inner = Child<ctlPanelButton>("ctlScanRadius7");
    EXPECT_EQ(field->Backcolor(), RGBColor(223, 223, 223));
    EXPECT_FALSE(inner->Enabled());

    gISO484->SetISOInnerRadius(30);
    Choose("cboInnerRad", 1);
    EXPECT_EQ(gISO484->ISOIncludeInnerRadiusIndex(), 1);
    EXPECT_FALSE(field->Locked());
    EXPECT_TRUE(Child<QLabel>("lblInnerRad")->isEnabled());
    EXPECT_EQ(inner->Caption(), QStringLiteral("R30"));

    prompts.Expect(Answer::OK, "The minimum inner radius is 1.");
    field->TextBox()->setText(QStringLiteral("0.5"));
    EXPECT_EQ(prompts.History().back().text, "The minimum inner radius is 1.");
    EXPECT_EQ(field->Text(), QStringLiteral("10"));
    EXPECT_DOUBLE_EQ(gISO484->ISOInnerRadius(), 10);
    EXPECT_DOUBLE_EQ(gRadialPositions[7], 0.1);
    EXPECT_EQ(inner->Caption(), QStringLiteral("R10"));

    field->TextBox()->setText(QStringLiteral("39.9"));
    EXPECT_EQ(field->Text(), QStringLiteral("39.9"));
    EXPECT_DOUBLE_EQ(gISO484->ISOInnerRadius(), 39.9);
    EXPECT_EQ(inner->Caption(), QStringLiteral("R39.9"));

    prompts.Expect(Answer::OK, "The maximum inner radius is 39.");
    field->TextBox()->setText(QStringLiteral("40"));
    EXPECT_EQ(field->Text(), QStringLiteral("39"));
    EXPECT_DOUBLE_EQ(gISO484->ISOInnerRadius(), 39);

    // Emptied, the setting takes its default and nothing else moves.
    GraphsStale = false;
    field->TextBox()->clear();
    EXPECT_DOUBLE_EQ(gISO484->ISOInnerRadius(), 30);
    EXPECT_EQ(inner->Caption(), QStringLiteral("R39"));
    EXPECT_FALSE(GraphsStale);

    Choose("cboInnerRad", 0);
    EXPECT_EQ(gISO484->ISOIncludeInnerRadiusIndex(), 0);
    EXPECT_TRUE(field->Locked());
    EXPECT_FALSE(inner->Enabled());
}

TEST_F(frmPageProjectTest, LeftBarAsksTheWindowAndPanelsFollowTheWidth) {
    QSignalSpy open(page.get(), &frmPageProject::openRequested);
    QSignalSpy archive(page.get(), &frmPageProject::archiveRequested);
    QTest::mouseClick(Child<ctlPanelButton>("ctlProjectOpen"), Qt::LeftButton);
    QTest::mouseClick(Child<ctlPanelButton>("ctlViewArchive"), Qt::LeftButton);
    // Momentary buttons: each asks once its press has shown.
    EXPECT_TRUE(QTest::qWaitFor([&] { return open.count() == 1 && archive.count() == 1; }, 2000));

    for (const auto& [width, columns] : {std::pair{1500, 3}, std::pair{960, 2}, std::pair{520, 1}}) {
        page->resize(width, 800);
        page->ResizeScreenElements();
        EXPECT_EQ(page->PanelColumns(), columns) << width;
    }
}

TEST_F(frmPageProjectTest, RefreshWithoutAProjectReportsAndGivesZero) {
    gProject.reset();
    prompts.Expect(Answer::Ignore, "refreshing project form data");
    EXPECT_EQ(page->RefreshProjectFormData(), 0);
    // The fields do nothing without a project to write to.
    Type("txtCustomer", QStringLiteral("x"));
    EXPECT_FALSE(gProjectDirty);
}

} // namespace
} // namespace corvane
