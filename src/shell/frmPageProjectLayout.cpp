// Building and laying out the Project page: the panels of fields, the left bar of file commands
// and the right bar with the map of radial sections.

#include "shell/frmPageProject.h"

#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/clsUnits.h"
#include "shell/ColorRef.h"
#include "shell/Twips.h"
#include "shell/ctlComboField.h"
#include "shell/ctlPanelButton.h"
#include "shell/ctlTextField.h"
#include "shell/modProjectPageRules.h"

#include <QFontMetrics>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace corvane {
namespace {

using namespace pagecolours;
constexpr std::uint32_t kWhite = pagecolours::kPanelWhite;
constexpr std::uint32_t kMissingColor = RGBColor(255, 0, 0);

// Widths of the page at which the panels go to three and to two columns, in pixels.
constexpr int kThreeColumnWidth = 1020;
constexpr int kTwoColumnWidth = 640;
// Each panel spans two of six grid columns in three columns, three of six in two.
constexpr int kGridColumns = 6;
constexpr int kBarButtonHeight = 52;
constexpr int kRadiusButtonHeight = 40;
constexpr int kBarMargin = 8;
const int kBarButtonWidth = TwipsToPixels(kPanelSizes[0].panelTwips);
constexpr int kFieldMinimumWidth = 140;
constexpr int kMarkColumnWidth = 18;

void Paint(QWidget* widget, std::uint32_t back) {
    QPalette colours = widget->palette();
    colours.setColor(QPalette::Window, FromBGR(back));
    widget->setPalette(colours);
    widget->setAutoFillBackground(true);
}

// A white card with a thin frame in the application's frame colour.
class ProjectPanel : public QFrame {
public:
    using QFrame::QFrame;

protected:
    void paintEvent(QPaintEvent* event) override {
        QFrame::paintEvent(event);
        QPainter painter(this);
        painter.setPen(FromBGR(kFrameColor));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
};

ctlPanelButton* NewBarButton(QWidget* parent, const char* name, const QString& caption, int clickAction) {
    return NewPagePanel(parent, name, caption, clickAction, kFaceColor);
}

// The buttons of a bar share one width: the panel size of the option, or more when a caption
// needs it.
void FitBarWidth(QWidget* bar) {
    const QList<ctlPanelButton*> buttons = bar->findChildren<ctlPanelButton*>();
    int width = kBarButtonWidth;
    for (const ctlPanelButton* button : buttons) {
        width = std::max(width, button->sizeHint().width());
    }
    for (ctlPanelButton* button : buttons) {
        button->setFixedWidth(width);
    }
}

} // namespace

void frmPageProject::BuildPage() {
    Paint(this, kPageColor);
    auto* root = new QHBoxLayout(this);
    root->setContentsMargins(0, 0, 0, 0);
    root->setSpacing(0);
    root->addWidget(BuildLeftBar());

    content_ = new QWidget();
    content_->setObjectName(QStringLiteral("picContent"));
    Paint(content_, kPageColor);
    grid_ = new QGridLayout(content_);
    grid_->setContentsMargins(12, 12, 12, 12);
    grid_->setSpacing(12);

    QGridLayout* body = nullptr;
    picInspector_ = NewPanel("picInspector", QStringLiteral("  Inspection information"), body);
    txtRepairShopName_ =
        AddTextField(body, 0, "txtRepairShopName", "lblRepairShopName", QStringLiteral("Repair shop"));
    txtRepairShopName_->SetLocked(true);
    txtRepairShopName_->SetBackcolor(RGBColor(223, 223, 223));
    txtInspector_ = AddTextField(body, 1, "txtInspector", "lblInspector", QStringLiteral("Inspector"));

    picClient_ = NewPanel("picClient", QStringLiteral("  Client information"), body);
    txtCustomer_ = AddTextField(body, 0, "txtCustomer", "lblCustomerName", QStringLiteral("Customer"));
    requiredChecks_[kCustomer] = AddCheckMark(body, 0, "lblCheckCustomerName");
    txtVessel_ = AddTextField(body, 1, "txtVessel", "lblVessel", QStringLiteral("Vessel"));
    txtJobNumber_ = AddTextField(body, 2, "txtJobNumber", "lblJobNumber", QStringLiteral("Job number"));
    txtProjectID_ = AddTextField(body, 3, "txtProjectID", "lblProjectID", QStringLiteral("Project ID"));
    requiredChecks_[kProjectID] = AddCheckMark(body, 3, "lblCheckProjectID");

    picPropeller_ = NewPanel("picPropeller", QStringLiteral("  Propeller information"), body);
    txtManufacturer_ =
        AddTextField(body, 0, "txtManufacturer", "lblManufacturer", QStringLiteral("Manufacturer"));
    txtModelNumber_ = AddTextField(body, 1, "txtModelNumber", "lblModelNumber", QStringLiteral("Model"));
    txtSerialNumber_ =
        AddTextField(body, 2, "txtSerialNumber", "lblSerialNumber", QStringLiteral("Serial number"));
    txtMaterial_ = AddTextField(body, 3, "txtMaterial", "lblMaterial", QStringLiteral("Material"));
    txtBoreSize_ = AddTextField(body, 4, "txtBoreSize", "lblBoreSize", QStringLiteral("Bore size"));
    cboRotation_ = AddComboField(body, 5, "cboRotation", "lblRotation", QStringLiteral("Rotation"));
    cboBladeCount_ = AddComboField(body, 6, "cboBladeCount", "lblBladeCount", QStringLiteral("Blade count"));
    cboUnits_ = AddComboField(body, 7, "cboUnits", "lblUnits", QStringLiteral("Units"));
    txtDiameter_ = AddTextField(body, 8, "txtDiameter", "lblDiameter", QStringLiteral("Diameter"));
    requiredChecks_[kDiameter] = AddCheckMark(body, 8, "lblCheckDiameter");
    txtPitch_ = AddTextField(body, 9, "txtPitch", "lblPitch", QStringLiteral("Pitch"));
    requiredChecks_[kPitch] = AddCheckMark(body, 9, "lblCheckPitch");

    picDeviceSetup_ = NewPanel("picDeviceSetup", QStringLiteral("  Device and ISO 484 setup"), body);
    cboScanArmOffset_ =
        AddComboField(body, 0, "cboScanArmOffset", "lblScanArmOffset", QStringLiteral("Scan arm offset"));
    cboISOTask_ = AddComboField(body, 1, "cboISOTask", "lblISOTask", QStringLiteral("ISO task"));
    cboISOClass_ = AddComboField(body, 2, "cboISOClass", "lblISOClass", QStringLiteral("ISO class"));
    cboISOCriteria_ =
        AddComboField(body, 3, "cboISOCriteria", "lblISOCriteria", QStringLiteral("ISO criteria"));
    cboInnerRad_ = AddComboField(body, 4, "cboInnerRad", "lblInnerRadIndex", QStringLiteral("Inner radius"));
    txtInnerRad_ =
        AddTextField(body, 5, "txtInnerRad", "lblInnerRad", QStringLiteral("Inner radius (% of R)"));
    requiredChecks_[kInnerRadius] = AddCheckMark(body, 5, "lblCheckInnerRadius");

    for (const auto& [field, caption] :
         {std::pair{kCustomer, "lblCustomerName"}, std::pair{kProjectID, "lblProjectID"},
          std::pair{kDiameter, "lblDiameter"}, std::pair{kPitch, "lblPitch"},
          std::pair{kInnerRadius, "lblInnerRad"}}) {
        requiredCaptions_[field] = content_->findChild<QLabel*>(QString::fromLatin1(caption));
    }
    lblInnerRad_ = requiredCaptions_[kInnerRadius];

    picJobNotes_ = NewPanel("picJobNotes", QStringLiteral("  Job notes"), body, true);
    txtJobNotes_ = AddNotes(body, "txtJobNotes");
    picInspectNotes_ = NewPanel("picInspectNotes", QStringLiteral("  Inspection notes"), body, true);
    txtNotes_ = AddNotes(body, "txtNotes");

    scroller_ = new QScrollArea(this);
    scroller_->setObjectName(QStringLiteral("picScroller"));
    scroller_->setFrameShape(QFrame::NoFrame);
    scroller_->setWidgetResizable(true);
    scroller_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroller_->setWidget(content_);
    root->addWidget(scroller_, 1);
    root->addWidget(BuildRightBar());
    ArrangePanels(3);
}

QWidget* frmPageProject::BuildLeftBar() {
    auto* bar = new QWidget(this);
    bar->setObjectName(QStringLiteral("picLeftBar"));
    Paint(bar, kFrameColor);
    auto* layout = new QVBoxLayout(bar);
    layout->setContentsMargins(kBarMargin, kBarMargin, kBarMargin, kBarMargin);
    layout->setSpacing(kBarMargin);
    const struct {
        const char* name;
        const char* caption;
        void (frmPageProject::*signal)();
        ctlPanelButton* frmPageProject::*button;
    } commands[] = {
        {"ctlProjectNew", "NEW", &frmPageProject::newRequested, &frmPageProject::ctlProjectNew_},
        {"ctlProjectOpen", "OPEN", &frmPageProject::openRequested, &frmPageProject::ctlProjectOpen_},
        {"ctlProjectSave", "SAVE", &frmPageProject::saveRequested, &frmPageProject::ctlProjectSave_},
        {"ctlViewArchive", "ARCHIVE", &frmPageProject::archiveRequested, &frmPageProject::ctlViewArchive_},
    };
    for (const auto& command : commands) {
        ctlPanelButton* button = NewBarButton(bar, command.name, QString::fromLatin1(command.caption),
                                              ctlPanelButton::ClickMomentary);
        button->setFixedHeight(kBarButtonHeight);
        connect(button, &ctlPanelButton::Click, this, command.signal);
        this->*command.button = button;
        layout->addWidget(button);
    }
    layout->addStretch(1);
    FitBarWidth(bar);
    return bar;
}

QWidget* frmPageProject::BuildRightBar() {
    auto* bar = new QWidget(this);
    bar->setObjectName(QStringLiteral("picRightBar"));
    Paint(bar, kFrameColor);
    auto* layout = new QVBoxLayout(bar);
    layout->setContentsMargins(kBarMargin, kBarMargin, kBarMargin, kBarMargin);
    layout->setSpacing(kBarMargin / 2);
    // A map only: the buttons show the sections and take no clicks here.
    ctlScanMaxRadius_ =
        NewBarButton(bar, "ctlScanMaxRadius", QStringLiteral("TIP"), ctlPanelButton::ClickNone);
    ctlScanMaxRadius_->setFixedHeight(kRadiusButtonHeight);
    layout->addWidget(ctlScanMaxRadius_);
    for (std::size_t i = 0; i < ctlScanRadius_.size(); ++i) {
        const QString name = QStringLiteral("ctlScanRadius%1").arg(i);
        ctlPanelButton* button =
            NewBarButton(bar, name.toLatin1().constData(), RadiusCaption(100.0 * kStandardRadialPositions[i]),
                         ctlPanelButton::ClickNone);
        button->setFixedHeight(kRadiusButtonHeight);
        ctlScanRadius_[i] = button;
        layout->addWidget(button);
    }
    layout->addStretch(1);
    FitBarWidth(bar);
    return bar;
}

QWidget* frmPageProject::NewPanel(const char* name, const QString& header, QGridLayout*& body,
                                  bool fillHeight) {
    auto* panel = new ProjectPanel(content_);
    panel->setObjectName(QString::fromLatin1(name));
    Paint(panel, kWhite);
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);

    auto* title = new QLabel(header, panel);
    title->setObjectName(QString::fromLatin1(name) + QStringLiteral("Header"));
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    title->setContentsMargins(0, 6, 6, 6);
    Paint(title, kFaceColor);
    QPalette colours = title->palette();
    colours.setColor(QPalette::WindowText, FromBGR(kWhite));
    title->setPalette(colours);
    layout->addWidget(title);

    body = new QGridLayout();
    body->setContentsMargins(12, 10, 12, 12);
    body->setHorizontalSpacing(10);
    body->setVerticalSpacing(6);
    body->setColumnStretch(1, 1);
    // The marks come and go; the fields keep their width.
    body->setColumnMinimumWidth(2, kMarkColumnWidth);
    layout->addLayout(body, fillHeight ? 1 : 0);
    if (!fillHeight) {
        layout->addStretch(1);
    }
    return panel;
}

QLabel* frmPageProject::AddCaption(QGridLayout* body, int row, const char* name, const QString& caption) {
    auto* label = new QLabel(caption, body->parentWidget());
    label->setObjectName(QString::fromLatin1(name));
    QPalette colours = label->palette();
    colours.setColor(QPalette::WindowText, Qt::black);
    label->setPalette(colours);
    body->addWidget(label, row, 0);
    return label;
}

ctlTextField* frmPageProject::AddTextField(QGridLayout* body, int row, const char* name,
                                           const char* captionName, const QString& caption) {
    AddCaption(body, row, captionName, caption);
    auto* field = new ctlTextField(body->parentWidget());
    field->setObjectName(QString::fromLatin1(name));
    field->setMinimumWidth(kFieldMinimumWidth);
    field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    body->addWidget(field, row, 1);
    return field;
}

ctlComboField* frmPageProject::AddComboField(QGridLayout* body, int row, const char* name,
                                             const char* captionName, const QString& caption) {
    AddCaption(body, row, captionName, caption);
    auto* combo = new ctlComboField(body->parentWidget());
    combo->setObjectName(QString::fromLatin1(name));
    combo->setMinimumWidth(kFieldMinimumWidth);
    combo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // The lists choose; nothing is typed, cut or pasted.
    combo->SetLocked(true);
    combo->TextBox()->setReadOnly(true);
    body->addWidget(combo, row, 1);
    return combo;
}

QLabel* frmPageProject::AddCheckMark(QGridLayout* body, int row, const char* name) {
    auto* mark = new QLabel(QStringLiteral("\u2714"), body->parentWidget());
    mark->setObjectName(QString::fromLatin1(name));
    mark->setToolTip(QStringLiteral("Required"));
    QFont bold = mark->font();
    bold.setBold(true);
    mark->setFont(bold);
    QPalette colours = mark->palette();
    colours.setColor(QPalette::WindowText, FromBGR(kMissingColor));
    mark->setPalette(colours);
    mark->setFixedWidth(kMarkColumnWidth);
    mark->setAlignment(Qt::AlignCenter);
    body->addWidget(mark, row, 2);
    return mark;
}

QPlainTextEdit* frmPageProject::AddNotes(QGridLayout* body, const char* name) {
    auto* notes = new QPlainTextEdit(body->parentWidget());
    notes->setObjectName(QString::fromLatin1(name));
    notes->setTabChangesFocus(true);
    notes->setMinimumHeight(90);
    body->addWidget(notes, 0, 0, 1, 3);
    return notes;
}

void frmPageProject::FillComboLists() {
    const clsCorvane project;
    for (int i = 0; i < 2; ++i) {
        cboRotation_->AddItem(QString::fromStdString(project.RotationLabel(i)));
    }
    for (int count = 2; count <= 7; ++count) {
        cboBladeCount_->AddItem(QString::number(count));
    }
    const clsUnits units;
    for (int i = 0; i < 4; ++i) {
        cboUnits_->AddItem(QString::fromStdString(units.GetUnitPropLengthLabel(i)));
    }
    for (const char* item : kScanArmOffsetItems) {
        cboScanArmOffset_->AddItem(QString::fromLatin1(item));
    }
    const clsISO484 iso;
    for (int i = 0; !iso.ISOTaskLabel(i).empty(); ++i) {
        cboISOTask_->AddItem(QString::fromStdString(iso.ISOTaskLabel(i)));
    }
    for (int i = 0; !iso.ISOClassLabel(i).empty(); ++i) {
        cboISOClass_->AddItem(QString::fromStdString(iso.ISOClassLabel(i)));
    }
    for (int i = 0; !iso.ISOCriteriaLabel(i).empty(); ++i) {
        cboISOCriteria_->AddItem(QString::fromStdString(iso.ISOCriteriaLabel(i)));
    }
    for (int i = 0; i < 2; ++i) {
        cboInnerRad_->AddItem(QString::fromStdString(iso.ISOIncludeInnerRadiusLabel(i)));
    }
}

void frmPageProject::ConnectFields() {
    for (ctlTextField* field :
         {txtInspector_, txtCustomer_, txtVessel_, txtJobNumber_, txtProjectID_, txtManufacturer_,
          txtModelNumber_, txtSerialNumber_, txtMaterial_, txtBoreSize_, txtPitch_}) {
        connect(field, &ctlTextField::Change, this, [this, field] { TextField_Change(field); });
    }
    connect(txtDiameter_, &ctlTextField::Change, this, [this] { txtDiameter_Change(); });
    connect(txtDiameter_, &ctlTextField::KeyPress, this, [this](int& key) { txtDiameter_KeyPress(key); });
    connect(txtDiameter_, &ctlTextField::LostFocus, this, [this] { txtDiameter_LostFocus(); });
    connect(txtInnerRad_, &ctlTextField::Change, this, [this] { txtInnerRad_Change(); });
    connect(txtInnerRad_, &ctlTextField::KeyPress, this, [this](int& key) { txtInnerRad_KeyPress(key); });
    connect(cboRotation_, &ctlComboField::Click, this, [this] { cboRotation_Click(); });
    connect(cboBladeCount_, &ctlComboField::Click, this, [this] { cboBladeCount_Click(); });
    connect(cboUnits_, &ctlComboField::Click, this, [this] { cboUnits_Click(); });
    connect(cboScanArmOffset_, &ctlComboField::Click, this, [this] { cboScanArmOffset_Click(); });
    connect(cboISOTask_, &ctlComboField::Click, this, [this] { cboISOTask_Click(); });
    connect(cboISOClass_, &ctlComboField::Click, this, [this] { cboISOClass_Click(); });
    connect(cboISOCriteria_, &ctlComboField::Click, this, [this] { cboISOCriteria_Click(); });
    connect(cboInnerRad_, &ctlComboField::Click, this, [this] { cboInnerRad_Click(); });
    for (QPlainTextEdit* notes : {txtJobNotes_, txtNotes_}) {
        connect(notes, &QPlainTextEdit::textChanged, this, [this, notes] { Notes_Change(notes); });
    }
}

void frmPageProject::ArrangePanels(int columns) {
    for (QWidget* panel :
         {picInspector_, picClient_, picPropeller_, picDeviceSetup_, picJobNotes_, picInspectNotes_}) {
        grid_->removeWidget(panel);
    }
    for (int column = 0; column < kGridColumns; ++column) {
        grid_->setColumnStretch(column, 0);
    }
    for (int row = 0; row < 6; ++row) {
        grid_->setRowStretch(row, 0);
    }
    int notesRow = 0;
    if (columns >= 3) {
        grid_->addWidget(picInspector_, 0, 0, 1, 2);
        grid_->addWidget(picClient_, 1, 0, 1, 2);
        grid_->addWidget(picPropeller_, 0, 2, 2, 2);
        grid_->addWidget(picDeviceSetup_, 0, 4, 2, 2);
        notesRow = 2;
        grid_->addWidget(picJobNotes_, notesRow, 0, 1, 3);
        grid_->addWidget(picInspectNotes_, notesRow, 3, 1, 3);
    } else if (columns == 2) {
        grid_->addWidget(picInspector_, 0, 0, 1, 3);
        grid_->addWidget(picClient_, 1, 0, 1, 3);
        grid_->addWidget(picDeviceSetup_, 2, 0, 1, 3);
        grid_->addWidget(picPropeller_, 0, 3, 3, 3);
        notesRow = 3;
        grid_->addWidget(picJobNotes_, notesRow, 0, 1, 3);
        grid_->addWidget(picInspectNotes_, notesRow, 3, 1, 3);
    } else {
        int row = 0;
        for (QWidget* panel :
             {picInspector_, picClient_, picPropeller_, picDeviceSetup_, picJobNotes_, picInspectNotes_}) {
            grid_->addWidget(panel, row++, 0, 1, kGridColumns);
        }
        notesRow = row - 1;
    }
    for (int column = 0; column < kGridColumns; ++column) {
        grid_->setColumnStretch(column, 1);
    }
    // The notes take the height that is left.
    grid_->setRowStretch(notesRow, 1);
    columns_ = columns;
}

void frmPageProject::ResizeScreenElements() {
    // The bars keep their width; the panels share what is left.
    const int bars = findChild<QWidget*>(QStringLiteral("picLeftBar"))->sizeHint().width() +
                     findChild<QWidget*>(QStringLiteral("picRightBar"))->sizeHint().width();
    const int width = this->width() - bars;
    const int columns = width >= kThreeColumnWidth ? 3 : width >= kTwoColumnWidth ? 2 : 1;
    if (columns != columns_) {
        ArrangePanels(columns);
    }
}

void frmPageProject::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ResizeScreenElements();
}

} // namespace corvane
