// The model comes before any Qt header: Qt's "slots" keyword macro would break its headers.
#include "library/LibraryTestProjects.h"
#include "library/clsProjectLibrary.h"

#include "shell/QtTestApp.h"
#include "shell/frmLibProject.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

namespace corvane {
namespace {

namespace fs = std::filesystem;

using test::Child;

class frmLibProjectTest : public test::LibraryTest {
protected:
    void SetUp() override {
        LibraryTest::SetUp();
        WriteThreeProjects();
    }
    // Shows the dialog and lets its first activation load the list.
    void Show(frmLibProject& dialog) {
        dialog.show();
        QCoreApplication::processEvents();
    }
    QTableWidget& Table(frmLibProject& dialog) { return *Child<QTableWidget>(dialog, "dtbLibProject"); }
    QString Label(frmLibProject& dialog, const char* name) { return Child<QLabel>(dialog, name)->text(); }
    QStringList ColumnText(frmLibProject& dialog, int column) {
        QStringList cells;
        for (int row = 0; row < Table(dialog).rowCount(); ++row)
            cells << Table(dialog).item(row, column)->text();
        return cells;
    }
    int RowOf(frmLibProject& dialog, const QString& id) {
        return static_cast<int>(ColumnText(dialog, 1).indexOf(id));
    }
    void ClickHeader(frmLibProject& dialog, int column) {
        QHeaderView* header = Table(dialog).horizontalHeader();
        const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    }

    QApplication& app = test::TestApp();
};

TEST_F(frmLibProjectTest, LoadsTheLibraryOnFirstShow) {
    frmLibProject dialog;
    Show(dialog);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Corvane Project Library"));
    QTableWidget& table = Table(dialog);
    ASSERT_EQ(table.rowCount(), 3);
    EXPECT_TRUE(table.isColumnHidden(kColumnFilePath));
    EXPECT_TRUE(table.isColumnHidden(kColumnDiameter));
    EXPECT_EQ(table.item(0, kColumnPropeller)->text(), QStringLiteral("1850 x 1400 - 4 - [mm] - Class 1"));
    EXPECT_TRUE(table.item(0, kColumnAll)->flags() & Qt::ItemIsUserCheckable);
    EXPECT_EQ(Label(dialog, "lblFoundItems"), QStringLiteral("Items Found: 3"));
    EXPECT_EQ(Child<QProgressBar>(dialog, "prgLoading")->value(), 100);

    frmLibProject archived;
    archived.SetArchiveMode(true);
    Show(archived);
    EXPECT_EQ(archived.windowTitle(), QStringLiteral("Corvane Archive"));
    EXPECT_EQ(Child<QPushButton>(archived, "cmdArchive")->text(), QStringLiteral("Restore"));
    EXPECT_EQ(Label(archived, "lblFoundItems"), QStringLiteral("Items Found: 0"));
}

TEST_F(frmLibProjectTest, AFolderWithoutWriteAccessClosesTheDialog) {
    settings.SetValue("Software\\Corvane\\DefaultOptions", "RootDirectory", temp->Folder() + "gone/");
    gRootDirectory = temp->Folder() + "gone/";
    prompts.Expect(Answer::OK, "does not have write permissions");
    frmLibProject dialog;
    Show(dialog);
    EXPECT_EQ(prompts.History().back().title, "Access Error");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
}

TEST_F(frmLibProjectTest, HeaderClicksSortAndSearchFilters) {
    frmLibProject dialog;
    Show(dialog);
    ClickHeader(dialog, kColumnPropeller); // by diameter in metres
    EXPECT_EQ(ColumnText(dialog, kColumnProjectID), (QStringList{"alpha-02", "Bravo-17", "Charlie-9"}));
    ClickHeader(dialog, kColumnPropeller);
    EXPECT_EQ(ColumnText(dialog, kColumnProjectID), (QStringList{"Charlie-9", "Bravo-17", "alpha-02"}));
    EXPECT_EQ(Table(dialog).horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);

    auto* search = Child<QLineEdit>(dialog, "txtSearchProject");
    auto* cmdSearch = Child<QPushButton>(dialog, "cmdSearch");
    QTest::keyClicks(search, "LINES");
    cmdSearch->click();
    EXPECT_EQ(ColumnText(dialog, kColumnProjectID), (QStringList{"Charlie-9"}));
    EXPECT_EQ(Label(dialog, "lblProgress"), QStringLiteral("Search Complete"));

    // Return searches and opens nothing; the narrowing itself is clsProjectLibraryTest's.
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());

    search->clear();
    EXPECT_EQ(Table(dialog).rowCount(), 3);
    EXPECT_EQ(Label(dialog, "lblFoundItems"), QStringLiteral("Items Found: 3"));

    // A double click opens the row's project.
    emit Table(dialog).cellDoubleClicked(RowOf(dialog, "Bravo-17"), kColumnCustomer);
    EXPECT_TRUE(dialog.ProjectOpened());
    EXPECT_EQ(gProjectFileName, "bravo.cvpj");
    EXPECT_FALSE(dialog.isVisible());
}

// What a lock does to the opening is clsProjectLibrary's (LibraryOpenTest); here the button.
TEST_F(frmLibProjectTest, OpenButtonOpensTheSelectedRow) {
    frmLibProject dialog;
    QSignalSpy opened(&dialog, &frmLibProject::projectOpened);
    Show(dialog);
    Child<QPushButton>(dialog, "cmdOpenFile")->click(); // no row marked: nothing happens
    EXPECT_TRUE(dialog.isVisible());
    Table(dialog).selectRow(RowOf(dialog, "alpha-02"));
    Child<QPushButton>(dialog, "cmdOpenFile")->click();
    EXPECT_EQ(opened.count(), 1);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(gProject->ProjectID(), "alpha-02");
}

TEST_F(frmLibProjectTest, MovesATickedRowIntoTheArchive) {
    gProjectFileName = "charlie.cvpj"; // the project open now
    frmLibProject dialog;
    Show(dialog);
    QTableWidget& table = Table(dialog);

    prompts.Expect(Answer::OK, "charlie.cvpj is currently open.");
    table.item(RowOf(dialog, "Charlie-9"), kColumnAll)->setCheckState(Qt::Checked);
    EXPECT_EQ(table.item(RowOf(dialog, "Charlie-9"), kColumnAll)->checkState(), Qt::Unchecked);

    table.item(RowOf(dialog, "Bravo-17"), kColumnAll)->setCheckState(Qt::Checked);
    prompts.Expect(Answer::Yes,
                   "Are you sure you want to move \"Bravo-17\" from Project Library into Archive?");
    prompts.Expect(Answer::OK, "1 file(s) were successfully moved into the Archive");
    Child<QPushButton>(dialog, "cmdArchive")->click();
    EXPECT_EQ(ColumnText(dialog, kColumnProjectID), (QStringList{"alpha-02", "Charlie-9"}));
    EXPECT_TRUE(fs::exists(archive + "bravo.cvpj"));

    // Nothing ticked now: the button does nothing.
    Child<QPushButton>(dialog, "cmdArchive")->click();

    // The head of the tick column ticks all rows but the open project, then clears them.
    prompts.Expect(Answer::OK, "charlie.cvpj is currently open.");
    ClickHeader(dialog, kColumnAll);
    EXPECT_EQ(table.item(RowOf(dialog, "alpha-02"), kColumnAll)->checkState(), Qt::Checked);
    EXPECT_EQ(table.item(RowOf(dialog, "Charlie-9"), kColumnAll)->checkState(), Qt::Unchecked);
    ClickHeader(dialog, kColumnAll);
    EXPECT_EQ(table.item(RowOf(dialog, "alpha-02"), kColumnAll)->checkState(), Qt::Unchecked);
}

} // namespace
} // namespace corvane
