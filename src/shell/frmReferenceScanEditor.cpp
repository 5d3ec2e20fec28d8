#include "shell/frmReferenceScanEditor.h"

#include "graphs/modGraphs.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/modReferenceSource.h"
#include "model/modUtilities.h"
#include "shell/ColorRef.h"
#include "shell/clsFileDialog.h"
#include "shell/ctlPanelButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace corvane {

namespace {

using namespace pagecolours;
constexpr std::uint32_t kPendingColor = pagecolours::kPressedColor;
constexpr std::uint32_t kWhite = pagecolours::kPanelWhite;
const QColor kLockedCell(223, 223, 223);
// The file field shows this many characters of the path at most.
constexpr std::size_t kFileFieldChars = 34;

ctlPanelButton* PanelButton(QWidget* parent, const char* name, const QString& caption) {
    auto* button = new ctlPanelButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->SetPanelColors(kFrameColor, kDisabledColor, kFaceColor, kPendingColor);
    button->SetForeColor(kWhite);
    button->SetSize(0);
    button->SetClickAction(ctlPanelButton::ClickMomentary);
    button->SetCaption(caption);
    button->setFixedHeight(30);
    return button;
}

QComboBox* Combo(QWidget* parent, const char* name) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(QString::fromLatin1(name));
    return combo;
}

QLineEdit* Field(QWidget* parent, const char* name) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    return field;
}

double Number(const QString& text) {
    return StringToDouble(text.trimmed().toStdString());
}

} // namespace

frmReferenceScanEditor::frmReferenceScanEditor(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picReferenceEditor"));
    setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);

    auto* title = new QLabel(QStringLiteral("<b>Reference</b>"), this);
    layout->addWidget(title);
    cboRepairSource = Combo(this, "cboRepairSource");
    for (int source = kReferenceNone; source <= kReferenceFilePitch; ++source) {
        cboRepairSource->addItem(QString::fromStdString(clsCorvane().ReferenceSourceLabel(source)));
    }
    layout->addWidget(cboRepairSource);

    scanGroup_ = new QWidget(this);
    auto* scan = new QGridLayout(scanGroup_);
    scan->setContentsMargins(0, 0, 0, 0);
    cboReferenceScanIndex = Combo(scanGroup_, "cboReferenceScanIndex");
    ctlLockScan = PanelButton(scanGroup_, "ctlLockScan", QStringLiteral("LOCK"));
    scan->addWidget(new QLabel(QStringLiteral("Scan"), scanGroup_), 0, 0);
    scan->addWidget(cboReferenceScanIndex, 0, 1, 1, 5);
    scan->addWidget(ctlLockScan, 0, 6, 1, 2);
    scan->addWidget(new QLabel(QStringLiteral("Blades"), scanGroup_), 1, 0);
    for (int b = 0; b < kPanelBlades; ++b) {
        auto* box = new QCheckBox(QString::number(b + 1), scanGroup_);
        box->setObjectName(QStringLiteral("chkAvgBlade%1").arg(b));
        chkAvgBlade[static_cast<std::size_t>(b)] = box;
        scan->addWidget(box, 2 + b / 4, b % 4 * 2, 1, 2);
        connect(box, &QCheckBox::toggled, this, [this, b](bool on) {
            if (!showing_) {
                panel_.SetAverageBlade(b, on);
                Edited();
            }
        });
    }
    ctlRefAllBlades = PanelButton(scanGroup_, "ctlRefAllBlades", QStringLiteral("ALL"));
    scan->addWidget(ctlRefAllBlades, 1, 6, 1, 2);
    layout->addWidget(scanGroup_);

    pitchGroup_ = new QWidget(this);
    auto* pitch = new QGridLayout(pitchGroup_);
    pitch->setContentsMargins(0, 0, 0, 0);
    cboPitchDefinition = Combo(pitchGroup_, "cboPitchDefinition");
    cboRepairToSectionPitch = Combo(pitchGroup_, "cboRepairToSectionPitch");
    cboRepairToLocalPitch = Combo(pitchGroup_, "cboRepairToLocalPitch");
    const clsCorvane labels;
    for (int i = 0; i < 2; ++i) {
        cboPitchDefinition->addItem(QString::fromStdString(labels.ReferenceSectionPitchSourceLabel(i)));
        cboRepairToSectionPitch->addItem(QString::fromStdString(labels.ReferenceSectionPitchLabel(i)));
        cboRepairToLocalPitch->addItem(QString::fromStdString(labels.ReferenceLocalPitchLabel(i)));
    }
    ctlEstimatePitch = PanelButton(pitchGroup_, "ctlEstimatePitch", QStringLiteral("..."));
    txtRepairReferencePitch = Field(pitchGroup_, "txtRepairReferencePitch");
    dtbVariablePitch = new QTableWidget(kPanelRows, 2, pitchGroup_);
    dtbVariablePitch->setObjectName(QStringLiteral("dtbVariablePitch"));
    dtbVariablePitch->setHorizontalHeaderLabels({QStringLiteral("r/R"), QStringLiteral("Pitch")});
    dtbVariablePitch->verticalHeader()->setVisible(false);
    dtbVariablePitch->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    dtbVariablePitch->verticalHeader()->setDefaultSectionSize(22);
    dtbVariablePitch->setMinimumHeight(22 * (kPanelRows + 1) + 4);
    pitch->addWidget(new QLabel(QStringLiteral("Pitch"), pitchGroup_), 0, 0);
    pitch->addWidget(cboPitchDefinition, 0, 1);
    pitch->addWidget(ctlEstimatePitch, 0, 2);
    pitch->addWidget(cboRepairToSectionPitch, 1, 0, 1, 2);
    pitch->addWidget(txtRepairReferencePitch, 1, 2);
    pitch->addWidget(dtbVariablePitch, 2, 0, 1, 3);
    pitch->addWidget(cboRepairToLocalPitch, 3, 0, 1, 3);
    layout->addWidget(pitchGroup_);

    fileGroup_ = new QWidget(this);
    auto* file = new QFormLayout(fileGroup_);
    file->setContentsMargins(0, 0, 0, 0);
    txtRepairReferenceFile = Field(fileGroup_, "txtRepairReferenceFile");
    txtRepairReferenceFile->setReadOnly(true);
    txtRepairReferenceFile->setPlaceholderText(QStringLiteral("Click to choose a file"));
    txtRepairReferenceFile->installEventFilter(this);
    lblReferenceFileInfo = new QLabel(fileGroup_);
    lblReferenceFileInfo->setObjectName(QStringLiteral("lblReferenceFileInfo"));
    txtCupExclusion = Field(fileGroup_, "txtCupExclusion");
    txtLEExclusion = Field(fileGroup_, "txtLEExclusion");
    file->addRow(QStringLiteral("File"), txtRepairReferenceFile);
    file->addRow(QString(), lblReferenceFileInfo);
    file->addRow(QStringLiteral("Cup exclusion"), txtCupExclusion);
    file->addRow(QStringLiteral("LE exclusion"), txtLEExclusion);
    layout->addWidget(fileGroup_);

    layout->addStretch(1);
    picApplyBackGround = new QWidget(this);
    picApplyBackGround->setObjectName(QStringLiteral("picApplyBackGround"));
    picApplyBackGround->setAutoFillBackground(true);
    auto* apply = new QVBoxLayout(picApplyBackGround);
    apply->setContentsMargins(3, 3, 3, 3);
    ctlApply = PanelButton(picApplyBackGround, "ctlApply", QStringLiteral("APPLY"));
    ctlApply->setFixedHeight(40);
    apply->addWidget(ctlApply);
    layout->addWidget(picApplyBackGround);

    const auto index = [](QComboBox* combo, auto apply) {
        return [combo, apply] { apply(static_cast<std::int16_t>(combo->currentIndex())); };
    };
    const auto edit = [this](auto change) {
        return [this, change] {
            if (!showing_) {
                change();
                Edited();
            }
        };
    };
    connect(cboRepairSource, &QComboBox::currentIndexChanged, this, edit([this] {
                panel_.SetSource(static_cast<std::int16_t>(cboRepairSource->currentIndex()));
                // In Auto the pitch of a new source comes from the scan at once.
                if (FieldsForSource(panel_.Settings().source).pitch &&
                    panel_.Settings().pitchDefinition == 1) {
                    Estimate();
                }
            }));
    connect(cboReferenceScanIndex, &QComboBox::currentIndexChanged, this,
            edit(index(cboReferenceScanIndex, [this](std::int16_t i) { panel_.ChooseScan(i); })));
    connect(cboRepairToSectionPitch, &QComboBox::currentIndexChanged, this,
            edit(index(cboRepairToSectionPitch, [this](std::int16_t i) { panel_.SetSectionPitchIndex(i); })));
    connect(cboRepairToLocalPitch, &QComboBox::currentIndexChanged, this,
            edit(index(cboRepairToLocalPitch, [this](std::int16_t i) { panel_.SetLocalPitchIndex(i); })));
    connect(cboPitchDefinition, &QComboBox::currentIndexChanged, this, edit([this] {
                panel_.SetPitchDefinition(static_cast<std::int16_t>(cboPitchDefinition->currentIndex()));
                // Auto fills the locked pitches from the scan at once.
                if (panel_.Settings().pitchDefinition == 1) {
                    Estimate();
                }
            }));
    connect(txtRepairReferencePitch, &QLineEdit::editingFinished, this,
            edit([this] { panel_.SetConstantPitch(Number(txtRepairReferencePitch->text())); }));
    connect(txtCupExclusion, &QLineEdit::editingFinished, this,
            edit([this] { panel_.SetCupExclusion(txtCupExclusion->text().toStdString()); }));
    connect(txtLEExclusion, &QLineEdit::editingFinished, this,
            edit([this] { panel_.SetLEExclusion(txtLEExclusion->text().toStdString()); }));
    connect(dtbVariablePitch, &QTableWidget::cellChanged, this, [this](int row, int column) {
        if (!showing_ && column == 1) {
            panel_.SetVariablePitch(row, Number(dtbVariablePitch->item(row, column)->text()));
            Edited();
        }
    });
    connect(ctlLockScan, &ctlPanelButton::Click, this, edit([this] {
                const int shown = cboReferenceScanIndex->currentIndex();
                panel_.LockScan(static_cast<std::int16_t>(
                    shown >= 0 ? shown : (project_ ? project_->ActiveScanIndex() : 0)));
            }));
    connect(ctlRefAllBlades, &ctlPanelButton::Click, this, edit([this] { panel_.SetAllBlades(); }));
    connect(ctlEstimatePitch, &ctlPanelButton::Click, this, edit([this] { Estimate(); }));
    connect(ctlApply, &ctlPanelButton::Click, this, &frmReferenceScanEditor::ApplyClicked);
    ShowState();
}

void frmReferenceScanEditor::LoadFrom(const clsCorvane& project) {
    panel_.Load(project);
    showing_ = true;
    cboReferenceScanIndex->clear();
    for (int i = 0; i < project.PropellerScanCount(); ++i) {
        const auto scan = project.PropellerScan(i);
        cboReferenceScanIndex->addItem(
            QString::fromStdString(scan->Description() + " [" + ScanLabel(scan->ScanID()) + "] "));
    }
    showing_ = false;
    ShowState();
}

QString frmReferenceScanEditor::Length(double value) const {
    return project_ ? QString::fromStdString(FormatLength(*project_, value)) : QString::number(value);
}

void frmReferenceScanEditor::ShowState() {
    showing_ = true;
    const ReferencePanelSettings& s = panel_.Settings();
    const ReferencePanelFields fields = FieldsForSource(s.source);
    cboRepairSource->setCurrentIndex(s.source);
    scanGroup_->setVisible(fields.scan);
    pitchGroup_->setVisible(fields.pitch);
    fileGroup_->setVisible(fields.file);
    if (s.internalScanIndex < cboReferenceScanIndex->count()) {
        cboReferenceScanIndex->setCurrentIndex(s.internalScanIndex);
    }
    // A locked scan hides LOCK until another source is chosen.
    ctlLockScan->setVisible(s.internalScanSourceIndex != 1);
    for (int b = 0; b < kPanelBlades; ++b) {
        QCheckBox* box = chkAvgBlade[static_cast<std::size_t>(b)];
        box->setVisible(b < s.bladeCount);
        box->setChecked(s.averageBlades[static_cast<std::size_t>(b)]);
    }
    const bool automatic = s.pitchDefinition == 1;
    cboPitchDefinition->setCurrentIndex(s.pitchDefinition);
    cboRepairToSectionPitch->setCurrentIndex(s.sectionPitchIndex);
    cboRepairToLocalPitch->setCurrentIndex(s.localPitchIndex);
    const bool variable = s.sectionPitchIndex == 1;
    txtRepairReferencePitch->setVisible(!variable);
    dtbVariablePitch->setVisible(variable);
    txtRepairReferencePitch->setText(Length(s.constantPitch));
    txtRepairReferencePitch->setReadOnly(automatic);
    for (int row = 0; row < kPanelRows; ++row) {
        const double r = s.radialPos[static_cast<std::size_t>(row)];
        const std::array<QString, 2> texts = {QString::number(r, 'f', 2),
                                              Length(s.variablePitch[static_cast<std::size_t>(row)])};
        for (int column = 0; column < 2; ++column) {
            auto* item = dtbVariablePitch->item(row, column);
            if (item == nullptr) {
                item = new QTableWidgetItem;
                dtbVariablePitch->setItem(row, column, item);
            }
            item->setText(texts[static_cast<std::size_t>(column)]);
            // The r/R column is never typed in; the pitches only in Manual.
            const bool locked = column == 0 || automatic;
            item->setFlags(locked ? Qt::ItemIsEnabled
                                  : Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
            item->setBackground(locked ? QBrush(kLockedCell) : QBrush(Qt::white));
        }
    }
    txtRepairReferenceFile->setText(QString::fromStdString(ShortenedPath(s.filePath, kFileFieldChars)));
    txtRepairReferenceFile->setToolTip(QString::fromStdString(s.filePath));
    txtCupExclusion->setText(Length(s.cupExclusion));
    txtLEExclusion->setText(Length(s.leExclusion));
    const std::uint32_t face = panel_.Pending() ? kPendingColor : kFaceColor;
    ctlApply->SetPanelColors(kFrameColor, kDisabledColor, face, kPendingColor);
    QPalette palette = picApplyBackGround->palette();
    palette.setColor(QPalette::Window, FromBGR(panel_.Pending() ? kPendingColor : kFaceColor));
    picApplyBackGround->setPalette(palette);
    showing_ = false;
}

void frmReferenceScanEditor::Edited() {
    ShowState();
}

void frmReferenceScanEditor::Estimate() {
    if (project_ && iso_) {
        panel_.EstimatePitch(*project_, *iso_);
    }
}

void frmReferenceScanEditor::ChooseFile() {
    clsFileDialog dialog;
    dialog.DialogTitle = "Open file...";
    dialog.Filters = {{"All supported files (*.cvrf, *.ppp)", "*.cvrf;*.ppp"},
                      {"Corvane Reference file  (*.cvrf)", "*.cvrf"},
                      {"Michigin Wheel PPP file (*.ppp) ", "*.ppp"}};
    dialog.Parent = this;
    if (!project_ || !dialog.ShowOpen()) {
        return;
    }
    const ReferenceFileRead read = ReadReferenceFileIntoProject(*project_, dialog.FileName);
    panel_.SetFilePath(read.read ? dialog.FileName : std::string());
    lblReferenceFileInfo->setText(
        read.read ? QStringLiteral("Diameter %1   Pitch %2").arg(Length(read.diameter), Length(read.pitch))
                  : QString());
    Edited();
}

bool frmReferenceScanEditor::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtRepairReferenceFile && event->type() == QEvent::MouseButtonPress) {
        ChooseFile();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace corvane
