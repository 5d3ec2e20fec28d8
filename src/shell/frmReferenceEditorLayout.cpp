// The reference editor's widgets and how the tables are shown in them.
// The model comes before any Qt header: Qt's "slots" keyword macro would break its headers.
#include "model/Globals.h"
#include "model/clsUnits.h"
#include "model/modUtilities.h"

#include "shell/frmReferenceEditor.h"

#include <QAction>
#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace corvane {

namespace {

// Cells that show a result rather than take a value.
const QColor kResultCell(223, 223, 223);

QString Q(const std::string& text) {
    return QString::fromStdString(text);
}

std::string LengthFormat() {
    return gUnits ? gUnits->PropLengthFormat() : std::string("0.0###");
}

QPushButton* Button(QWidget* parent, const char* name, const char* caption) {
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

QLineEdit* Field(QWidget* parent, const char* name) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    return field;
}

// The item of a cell, made when the cell has none: items are reused, never replaced, so that an
// item whose edit is being reported is never deleted under it.
QTableWidgetItem* CellItem(QTableWidget& table, int row, int column) {
    QTableWidgetItem* item = table.item(row, column);
    if (item == nullptr) {
        item = new QTableWidgetItem();
        table.setItem(row, column, item);
    }
    return item;
}

void SetCell(QTableWidget& table, int row, int column, const std::string& text, bool editable) {
    QTableWidgetItem* item = CellItem(table, row, column);
    item->setText(Q(text));
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    item->setFlags(editable ? flags | Qt::ItemIsEditable : flags);
    item->setBackground(editable ? QBrush() : QBrush(kResultCell));
}

QAction* DeleteAction(QTableWidget* table, const char* name, const char* caption) {
    auto* action = new QAction(QString::fromLatin1(caption), table);
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(QKeySequence::Delete);
    action->setShortcutContext(Qt::WidgetShortcut);
    table->addAction(action);
    table->setContextMenuPolicy(Qt::ActionsContextMenu);
    return action;
}

} // namespace

frmReferenceEditor::frmReferenceEditor(QWidget* parent)
    : QDialog(parent,
              Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::WindowMaximizeButtonHint),
      txtDescription_(Field(this, "txtDescription")), txtDiameter_(Field(this, "txtDiameter")),
      txtPropPitch_(Field(this, "txtPropPitch")), txtSectionCount_(Field(this, "txtSectionCount")),
      txtSegmentCount_(Field(this, "txtSegmentCount")),
      chkUseConstantLocalPitch_(new QCheckBox(QStringLiteral("Use constant local pitch"), this)),
      dtbSectionData_(new QTableWidget(this)), dtbLocalPitchData_(new QTableWidget(this)) {
    setObjectName(QStringLiteral("frmReferenceEditor"));
    setWindowTitle(QStringLiteral("Reference Editor"));
    setModal(true);
    BuildLayout();
    Refresh();
    resize(980, 620);
}

void frmReferenceEditor::BuildLayout() {
    txtPropPitch_->setReadOnly(true);
    chkUseConstantLocalPitch_->setObjectName(QStringLiteral("chkUseConstantLocalPitch"));
    dtbSectionData_->setObjectName(QStringLiteral("dtbSectionData"));
    dtbLocalPitchData_->setObjectName(QStringLiteral("dtbLocalPitchData"));
    dtbSectionData_->setColumnCount(5);
    dtbSectionData_->setHorizontalHeaderLabels({QStringLiteral("r/R (%)"), QStringLiteral("Chord"),
                                                QStringLiteral("Rake"), QStringLiteral("Skew (deg)"),
                                                QStringLiteral("Pitch")});
    for (QTableWidget* table : {dtbSectionData_, dtbLocalPitchData_}) {
        table->horizontalHeader()->setDefaultSectionSize(78);
        table->verticalHeader()->setDefaultSectionSize(24);
    }
    // Five columns always: they share the width, and the pitch is never scrolled out of sight.
    dtbSectionData_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    const QString unit =
        gUnits ? QStringLiteral(" (") + Q(gUnits->GetUnitPropLengthLabel(-1)) + QStringLiteral(")")
               : QString();

    auto* fields = new QFormLayout();
    fields->addRow(QStringLiteral("Description"), txtDescription_);
    fields->addRow(QStringLiteral("Diameter") + unit, txtDiameter_);
    fields->addRow(QStringLiteral("Propeller pitch (mean)") + unit, txtPropPitch_);
    auto* counts = new QFormLayout();
    counts->addRow(QStringLiteral("Sections"), txtSectionCount_);
    counts->addRow(QStringLiteral("Segments (local pitch)"), txtSegmentCount_);
    counts->addRow(QString(), chkUseConstantLocalPitch_);
    auto* top = new QHBoxLayout();
    top->addLayout(fields, 3);
    top->addSpacing(24);
    top->addLayout(counts, 2);

    auto* sectionLabel = new QLabel(QStringLiteral("Sections"), this);
    auto* localLabel = new QLabel(QStringLiteral("Local pitch, from the leading edge"), this);
    auto* sectionColumn = new QVBoxLayout();
    sectionColumn->addWidget(sectionLabel);
    sectionColumn->addWidget(dtbSectionData_);
    auto* localColumn = new QVBoxLayout();
    localColumn->addWidget(localLabel);
    localColumn->addWidget(dtbLocalPitchData_);
    auto* tables = new QHBoxLayout();
    tables->addLayout(sectionColumn, 2);
    tables->addLayout(localColumn, 3);

    auto* ctlNew = Button(this, "ctlNew", "New");
    auto* ctlReferenceFile = Button(this, "ctlReferenceFile", "From scan");
    auto* ctlImport = Button(this, "ctlImport", "Import...");
    auto* ctlSaveAs = Button(this, "ctlSaveAs", "Save as...");
    auto* ctlAddSection = Button(this, "ctlAddSection", "Add section");
    auto* ctlAddSegment = Button(this, "ctlAddSegment", "Add segment");
    auto* ctlClose = Button(this, "ctlClose", "Close");
    auto* buttons = new QHBoxLayout();
    for (QPushButton* button : {ctlNew, ctlReferenceFile, ctlImport, ctlSaveAs}) {
        buttons->addWidget(button);
    }
    buttons->addSpacing(24);
    buttons->addWidget(ctlAddSection);
    buttons->addWidget(ctlAddSegment);
    buttons->addStretch();
    buttons->addWidget(ctlClose);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(tables, 1);
    layout->addLayout(buttons);

    connect(ctlNew, &QPushButton::clicked, this, [this] { ctlNew_Click(); });
    connect(ctlReferenceFile, &QPushButton::clicked, this, [this] { ctlReferenceFile_Click(); });
    connect(ctlImport, &QPushButton::clicked, this, [this] { ctlImport_Click(); });
    connect(ctlSaveAs, &QPushButton::clicked, this, [this] { ctlSaveAs_Click(); });
    connect(ctlAddSection, &QPushButton::clicked, this, [this] { ctlAddSection_Click(); });
    connect(ctlAddSegment, &QPushButton::clicked, this, [this] { ctlAddSegment_Click(); });
    connect(ctlClose, &QPushButton::clicked, this, &frmReferenceEditor::close);
    connect(txtDescription_, &QLineEdit::editingFinished, this, [this] { DescriptionEdited(); });
    connect(txtDiameter_, &QLineEdit::editingFinished, this, [this] { DiameterEdited(); });
    connect(txtSectionCount_, &QLineEdit::editingFinished, this, [this] { txtSectionCount_Change(); });
    connect(txtSegmentCount_, &QLineEdit::editingFinished, this, [this] { txtSegmentCount_Change(); });
    connect(chkUseConstantLocalPitch_, &QCheckBox::clicked, this,
            [this] { chkUseConstantLocalPitch_Click(); });
    connect(dtbSectionData_, &QTableWidget::itemChanged, this,
            [this](QTableWidgetItem* item) { SectionCellChanged(item); });
    connect(dtbLocalPitchData_, &QTableWidget::itemChanged, this,
            [this](QTableWidgetItem* item) { LocalPitchCellChanged(item); });
    connect(DeleteAction(dtbSectionData_, "actDeleteSection", "Delete section"), &QAction::triggered, this,
            [this] { DeleteSection(); });
    connect(DeleteAction(dtbLocalPitchData_, "actDeleteSegment", "Delete segment"), &QAction::triggered, this,
            [this] { DeleteSegment(); });
}

void frmReferenceEditor::Refresh() {
    const bool wasFilling = filling_;
    filling_ = true;
    txtDescription_->setText(Q(tables_.Description()));
    shownDiameter_ = tables_.Diameter() == 0 ? QString() : Q(FormatPoint(tables_.Diameter(), LengthFormat()));
    txtDiameter_->setText(shownDiameter_);
    txtPropPitch_->setText(tables_.SectionCount() == 0 ? QString()
                                                       : Q(FormatPoint(tables_.PropPitch(), LengthFormat())));
    txtSectionCount_->setText(QString::number(tables_.SectionCount()));
    txtSegmentCount_->setText(QString::number(tables_.SegmentCount()));
    chkUseConstantLocalPitch_->setChecked(tables_.UseConstantLocalPitch());
    FillSectionTable();
    FillLocalPitchTable();
    filling_ = wasFilling;
}

void frmReferenceEditor::FillSectionTable() {
    const std::vector<ReferenceSectionRow>& rows = tables_.Rows();
    dtbSectionData_->setRowCount(static_cast<int>(rows.size()));
    const std::string length = LengthFormat();
    for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
        const ReferenceSectionRow& row = rows[static_cast<std::size_t>(r)];
        SetCell(*dtbSectionData_, r, 0, FormatPoint(row.radialPct, "0.0##"), true);
        SetCell(*dtbSectionData_, r, 1, FormatPoint(row.chord, length), true);
        SetCell(*dtbSectionData_, r, 2, FormatPoint(row.rake, length), true);
        SetCell(*dtbSectionData_, r, 3, FormatPoint(row.skew, "0.0##"), true);
        SetCell(*dtbSectionData_, r, 4, FormatPoint(row.pitch, length), true);
    }
}

void frmReferenceEditor::FillLocalPitchTable() {
    const std::vector<ReferenceSectionRow>& rows = tables_.Rows();
    const int segments = tables_.SegmentCount();
    const bool locked = tables_.UseConstantLocalPitch();
    dtbLocalPitchData_->setRowCount(static_cast<int>(rows.size()));
    dtbLocalPitchData_->setColumnCount(segments + 1);
    QStringList headings{QStringLiteral("Pitch")};
    for (int s = 0; s < segments; ++s) {
        QString heading = QString::number(s + 1);
        if (s == 0) {
            heading += QStringLiteral(" (LE)");
        } else if (s == segments - 1) {
            heading += QStringLiteral(" (TE)");
        }
        headings << heading;
    }
    dtbLocalPitchData_->setHorizontalHeaderLabels(headings);
    if (QTableWidgetItem* heading = dtbLocalPitchData_->horizontalHeaderItem(0)) {
        heading->setBackground(kResultCell);
    }
    QStringList radii;
    const std::string length = LengthFormat();
    for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
        const ReferenceSectionRow& row = rows[static_cast<std::size_t>(r)];
        radii << Q(FormatPoint(row.radialPct, "0.0##"));
        SetCell(*dtbLocalPitchData_, r, 0,
                row.meanPitch == 0 ? std::string() : FormatPoint(row.meanPitch, length), false);
        for (int s = 0; s < segments; ++s) {
            SetCell(*dtbLocalPitchData_, r, s + 1,
                    FormatPoint(row.localPitch[static_cast<std::size_t>(s)], length), !locked);
        }
    }
    dtbLocalPitchData_->setVerticalHeaderLabels(radii);
}

} // namespace corvane
