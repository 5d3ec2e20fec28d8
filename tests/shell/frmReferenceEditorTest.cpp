#include "WindowTestSupport.h"

#include "acquisition/DemoProject.h"
#include "shell/ToolsCommands.h"
#include "shell/frmReferenceEditor.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QSet>
#include <QTableWidget>
#include <QTimer>

#include <cstdlib>

namespace corvane {
namespace {

class frmReferenceEditorTest : public test::WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        editor = std::make_unique<frmReferenceEditor>(window.get());
    }
    void TearDown() override {
        editor.reset();
        WindowTest::TearDown();
    }

    template <typename T> T* Get(const char* name) { return test::Child<T>(*editor, name); }
    void Type(const char* field, const char* text) {
        Get<QLineEdit>(field)->setText(QString::fromLatin1(text));
        emit Get<QLineEdit>(field)->editingFinished();
    }
    void Edit(const char* table, int row, int column, const char* text) {
        Get<QTableWidget>(table)->item(row, column)->setText(QString::fromLatin1(text));
    }
    QString Cell(const char* table, int row, int column) {
        return Get<QTableWidget>(table)->item(row, column)->text();
    }
    // Three sections of 40 in at 95, 70 and 30 %, typed out of order, with three segments.
    void TypeReference() {
        prompts.Expect(Answer::OK, "The minumum number of Sections required is 3.");
        Type("txtSectionCount", "2");
        Type("txtSegmentCount", "3");
        Type("txtDiameter", "40");
        const char* radii[] = {"70", "30", "95"};
        for (int r = 0; r < 3; ++r) {
            Edit("dtbSectionData", r, 0, radii[r]); // sorted at once; rows r on are still at 0
        }
        for (int r = 0; r < 3; ++r) {
            Edit("dtbSectionData", r, 4, "36");
            for (int s = 1; s <= 3; ++s) {
                Edit("dtbLocalPitchData", r, s, "36");
            }
        }
    }

    std::unique_ptr<frmReferenceEditor> editor;
};

TEST_F(frmReferenceEditorTest, TypedCountsAndCellsMakeSortedTablesWithTheirMeans) {
    TypeReference();
    EXPECT_EQ(Get<QLineEdit>("txtSectionCount")->text(), "3");
    EXPECT_EQ(Get<QTableWidget>("dtbLocalPitchData")->columnCount(), 4);
    EXPECT_EQ(Get<QTableWidget>("dtbLocalPitchData")->horizontalHeaderItem(1)->text(), "1 (LE)");
    EXPECT_EQ(Cell("dtbSectionData", 0, 0), "95.0");
    EXPECT_EQ(Cell("dtbSectionData", 2, 0), "30.0");
    EXPECT_EQ(Cell("dtbSectionData", 2, 4), "36.000");
    EXPECT_EQ(Cell("dtbLocalPitchData", 1, 0), "36.000"); // the mean of three equal segments
    EXPECT_FALSE(Get<QTableWidget>("dtbLocalPitchData")->item(1, 0)->flags() & Qt::ItemIsEditable);
    EXPECT_EQ(Get<QLineEdit>("txtPropPitch")->text(), "36.000");
    EXPECT_TRUE(editor->Tables().Changed());

    Edit("dtbLocalPitchData", 2, 1, "30");
    EXPECT_LT(editor->Tables().Rows()[2].meanPitch, 34.0);
}

TEST_F(frmReferenceEditorTest, SaveAsNeedsAWritableFolderAndReadsBackThroughImport) {
    TypeReference();
    Type("txtDescription", "Tug 40 in");
    dialogs.Choose(temp->File("missing/tug.cvrf"));
    prompts.Expect(Answer::OK, "The current project directory does not have write permissions.");
    EXPECT_FALSE(editor->ctlSaveAs_Click());
    EXPECT_EQ(prompts.History().back().title, "Access Error");
    EXPECT_TRUE(editor->Tables().Changed());

    const std::string path = temp->File("tug.cvrf");
    dialogs.Choose(path);
    EXPECT_TRUE(editor->ctlSaveAs_Click());
    EXPECT_EQ(dialogs.requests.back().filters.at(0).description, "Norvelle Corvan  (*.cvrf)");
    EXPECT_FALSE(editor->Tables().Changed());

    editor->ctlNew_Click(); // saved: asks nothing
    EXPECT_EQ(Get<QTableWidget>("dtbSectionData")->rowCount(), 0);
    dialogs.Choose(path, 0);
    editor->ctlImport_Click();
    EXPECT_EQ(dialogs.requests.back().filters.at(1).description, "Propeller Pitch Progression (*.ppp)");
    EXPECT_EQ(Get<QLineEdit>("txtDescription")->text(), "Tug 40 in");
    EXPECT_EQ(Cell("dtbSectionData", 1, 0), "70.0");
    EXPECT_TRUE(Get<QCheckBox>("chkUseConstantLocalPitch")->isChecked()); // every segment at its pitch
    EXPECT_FALSE(Get<QTableWidget>("dtbLocalPitchData")->item(0, 2)->flags() & Qt::ItemIsEditable);
}

TEST_F(frmReferenceEditorTest, ClosingWithChangesAsksAndCancelKeepsTheWindow) {
    editor->show();
    TypeReference();
    prompts.Expect(Answer::Cancel, "Would you like to save the changes to the Reference File?");
    EXPECT_FALSE(editor->close());
    EXPECT_EQ(prompts.History().back().title, "Save Project?");
    prompts.Expect(Answer::No, "Would you like to save the changes to the Reference File?");
    EXPECT_TRUE(editor->close());
}

TEST_F(frmReferenceEditorTest, TheToolsMenuOpensTheEditorAndFromScanFillsItFromTheDemo) {
    bool shown = false;
    QTimer::singleShot(0, [&shown] {
        if (auto* opened = qobject_cast<frmReferenceEditor*>(QApplication::activeModalWidget())) {
            shown = true;
            opened->close();
        }
    });
    Entry("mnuToolsReferenceEditor")->trigger();
    EXPECT_TRUE(shown);

    ASSERT_EQ(BuildDemoProject(), 1);
    prompts.Expect(Answer::OK,
                   "Reference source is setup as \"None\". The reference data cannot be generated.");
    editor->ctlReferenceFile_Click();
    EXPECT_EQ(prompts.History().back().title, "Reference Editor");
    gProject->SetReferenceSourceIndex(1);
    gProject->SetReferenceConstantPitch(36.0);
    prompts.SetAnswerFreely(true);
    editor->ctlReferenceFile_Click();
    EXPECT_EQ(Get<QLineEdit>("txtDescription")->text(), "DEMO-4B - Scan 0");
    EXPECT_EQ(Get<QTableWidget>("dtbSectionData")->rowCount(), 8);
    EXPECT_EQ(Cell("dtbSectionData", 3, 4), "36.000");

    editor->resize(980, 620);
    const QImage image = test::Render(*editor);
    QSet<QRgb> colours; // a window of fields, tables and text has many; a blank one has one or two
    for (int i = 0; i < image.width() * image.height(); i += 7) {
        colours.insert(image.pixel(i % image.width(), i / image.width()));
    }
    EXPECT_GT(colours.size(), 10);
    // Set CORVANE_EDITOR_PICTURE to a PNG path to look at the window.
    if (const char* picture = std::getenv("CORVANE_EDITOR_PICTURE")) {
        image.save(QString::fromLocal8Bit(picture));
    }
}

} // namespace
} // namespace corvane
