#include "shell/frmManualEntry.h"

#include "acquisition/ManualEntry.h"
#include "shell/ColorRef.h"
#include "shell/ctlPanelButton.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

namespace corvane {
namespace {

using namespace pagecolours;

ctlPanelButton* EntryButton(QWidget* parent, const char* name, const QString& caption) {
    auto* button = NewPagePanel(parent, name, caption, ctlPanelButton::ClickMomentary, kFaceColor);
    button->setFixedHeight(40);
    return button;
}

} // namespace

frmManualEntry::frmManualEntry(clsSection& section, double fraction, int blade, int rotationIndex,
                               double nominalRadius, QWidget* parent)
    : QDialog(parent), section_(section), rotationIndex_(rotationIndex), nominalRadius_(nominalRadius) {
    setObjectName(QStringLiteral("frmManualEntry"));
    const QString caption = QString::fromStdString(ManualEntryCaption(fraction, blade));
    setWindowTitle(caption);
    auto* layout = new QVBoxLayout(this);
    lblInspectorHeader = new QLabel(caption, this);
    lblInspectorHeader->setObjectName(QStringLiteral("lblInspectorHeader"));
    QFont font = lblInspectorHeader->font();
    font.setPointSize(12);
    font.setBold(true);
    lblInspectorHeader->setFont(font);
    layout->addWidget(lblInspectorHeader);

    table_ = new QTableWidget(0, 2, this);
    table_->setObjectName(QStringLiteral("dtbSectionData"));
    table_->setHorizontalHeaderLabels({QStringLiteral("ANGLE"), QStringLiteral("DROP")});
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table_->installEventFilter(this);
    layout->addWidget(table_, 1);
    const std::vector<ManualEntryRow> rows = ManualEntryRows(section_);
    SetRowCount(static_cast<int>(rows.size()));
    for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
        SetCell(r, 0, QString::fromStdString(rows[static_cast<std::size_t>(r)].angle));
        SetCell(r, 1, QString::fromStdString(rows[static_cast<std::size_t>(r)].drop));
    }
    connect(table_, &QTableWidget::cellChanged, this, &frmManualEntry::CellChanged);

    auto* buttons = new QHBoxLayout();
    ctlEntryClear = EntryButton(this, "ctlEntryClear", QStringLiteral("Clear"));
    ctlEntryOK = EntryButton(this, "ctlEntryOK", QStringLiteral("OK"));
    buttons->addWidget(ctlEntryClear);
    buttons->addWidget(ctlEntryOK);
    layout->addLayout(buttons);
    connect(ctlEntryOK, &ctlPanelButton::Click, this, &frmManualEntry::ctlEntryOK_Click);
    connect(ctlEntryClear, &ctlPanelButton::Click, this, &frmManualEntry::ctlEntryClear_Click);
    resize(360, 480);
}

QString frmManualEntry::Cell(int row, int column) const {
    const QTableWidgetItem* item = table_->item(row, column);
    return item ? item->text() : QString();
}

void frmManualEntry::SetCell(int row, int column, const QString& text) {
    writing_ = true;
    if (QTableWidgetItem* item = table_->item(row, column)) {
        item->setText(text);
    } else {
        table_->setItem(row, column, new QTableWidgetItem(text));
    }
    writing_ = false;
}

void frmManualEntry::SetRowCount(int rows) {
    table_->setRowCount(std::max(rows, 1));
}

void frmManualEntry::CellChanged(int row, int column) {
    if (writing_) {
        return;
    }
    // Text that is no number becomes 0; a row filled at the end gets a new blank one below it.
    const QString text = QString::fromStdString(CellText(Cell(row, column).toStdString()));
    if (text != Cell(row, column)) {
        SetCell(row, column, text);
    }
    if (row == table_->rowCount() - 1 && !text.isEmpty()) {
        SetRowCount(table_->rowCount() + 1);
    }
}

void frmManualEntry::ctlEntryOK_Click() {
    if (QWidget* editor = table_->focusWidget(); editor && editor != table_) {
        table_->setFocus(); // commits the edit in progress
    }
    std::vector<ManualEntryRow> rows;
    for (int r = 0; r < table_->rowCount(); ++r) {
        rows.push_back({Cell(r, 0).toStdString(), Cell(r, 1).toStdString()});
    }
    ErrorTail tail("storing the section data table");
    ManualEntryResult result = ManualEntryResult::KeepOpen;
    tail.Step([&] { result = ApplyManualEntry(section_, rows, rotationIndex_, nominalRadius_); });
    if (result != ManualEntryResult::KeepOpen) {
        stored_ = true;
        accept();
    }
}

void frmManualEntry::ctlEntryClear_Click() {
    table_->setFocus();
    clearing_ = true;
    table_->setRowCount(1);
    SetCell(0, 0, QString());
    SetCell(0, 1, QString());
    clearing_ = false;
}

void frmManualEntry::Paste(const QString& text) {
    const int firstRow = std::max(0, table_->currentRow());
    const int firstColumn = std::max(0, table_->currentColumn());
    const auto cells = PastedCells(text.toStdString());
    if (firstRow + static_cast<int>(cells.size()) > table_->rowCount()) {
        SetRowCount(firstRow + static_cast<int>(cells.size()));
    }
    for (std::size_t r = 0; r < cells.size(); ++r) {
        for (std::size_t c = 0; c < cells[r].size() && firstColumn + static_cast<int>(c) < 2; ++c) {
            SetCell(firstRow + static_cast<int>(r), firstColumn + static_cast<int>(c),
                    QString::fromStdString(cells[r][c]));
        }
    }
}

void frmManualEntry::DeleteCurrentRow() {
    const int row = table_->currentRow();
    if (row < 0) {
        return;
    }
    ErrorTail tail("deleting row from section data table");
    tail.Step([&] {
        const ManualEntryRow point{Cell(row, 0).toStdString(), Cell(row, 1).toStdString()};
        if (!clearing_ && Prompts().MessageBox(DeleteRowQuestion(point), MsgBox::YesNo | MsgBox::Question,
                                               "Remove Radius?") != Answer::Yes) {
            return;
        }
        table_->removeRow(row);
        SetRowCount(table_->rowCount());
    });
}

void frmManualEntry::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        ctlEntryOK_Click(); // Esc keeps the entry
        return;
    }
    QDialog::keyPressEvent(event);
}

bool frmManualEntry::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_ && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Paste)) {
            Paste(QApplication::clipboard()->text());
            return true;
        }
        if (key->key() == Qt::Key_Delete &&
            table_->selectionModel()->isRowSelected(table_->currentRow(), QModelIndex())) {
            DeleteCurrentRow();
            return true;
        }
        if (key->key() == Qt::Key_Escape) {
            ctlEntryOK_Click();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace corvane
