#pragma once

#include <QDialog>

class QLabel;
class QTableWidget;

namespace corvane {

class clsSection;
class ctlPanelButton;

// The offsets of one section typed or pasted in by hand: a table of ANGLE and DROP (in the
// project unit), opened modally for the active blade and radius. The section changes only on OK,
// by the rules of ApplyManualEntry; Esc is OK too, so nothing typed is thrown away.
class frmManualEntry : public QDialog {
    Q_OBJECT

public:
    frmManualEntry(clsSection& section, double fraction, int blade, int rotationIndex, double nominalRadius,
                   QWidget* parent = nullptr);

    // The section took the table's points (or was emptied).
    bool Stored() const { return stored_; }

    void ctlEntryOK_Click();
    void ctlEntryClear_Click();
    // Writes pasted text into the table from the current cell on, growing it as needed.
    void Paste(const QString& text);
    // Asks before deleting the current row ("Remove Radius?"); No keeps it.
    void DeleteCurrentRow();

    QTableWidget* Table() const { return table_; }
    ctlPanelButton* ctlEntryOK = nullptr;
    ctlPanelButton* ctlEntryClear = nullptr;
    QLabel* lblInspectorHeader = nullptr;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void SetRowCount(int rows);
    QString Cell(int row, int column) const;
    void SetCell(int row, int column, const QString& text);
    void CellChanged(int row, int column);

    clsSection& section_;
    int rotationIndex_;
    double nominalRadius_;
    QTableWidget* table_ = nullptr;
    bool clearing_ = false; // the table is being wiped: no question before deleting rows
    bool writing_ = false;  // the program writes a cell: no numeric check
    bool stored_ = false;
};

} // namespace corvane
