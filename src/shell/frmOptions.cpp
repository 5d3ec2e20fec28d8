#include "shell/frmOptions.h"

#include "acquisition/modDAQUtilities.h"
#include "files/modSettings.h"
#include "model/Globals.h"
#include "model/modUtilities.h"
#include "shell/clsFileDialog.h"
#include "support/Services.h"
#include "support/modNVSystemUtilities.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <cmath>

namespace corvane {
namespace {

QString Q(const std::string& text) {
    return QString::fromStdString(text);
}

std::string S(const QString& text) {
    return text.toStdString();
}

std::string Lines(const QString& text) {
    return S(QString(text).replace(QStringLiteral("\n"), QStringLiteral("\r\n")));
}

// The station's key code of a key, for the trigger key's rules.
int VirtualKeyOf(const QKeyEvent& event) {
    const int key = event.key();
    if (key >= Qt::Key_F1 && key <= Qt::Key_F16) {
        return VirtualKey::F1 + (key - Qt::Key_F1);
    }
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return VirtualKey::Enter;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return VirtualKey::Tab;
    case Qt::Key_Shift:
        return VirtualKey::Shift;
    case Qt::Key_Control:
    case Qt::Key_Meta:
        return VirtualKey::Control;
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
        return VirtualKey::Alt;
    case Qt::Key_CapsLock:
        return VirtualKey::CapsLock;
    case Qt::Key_ScrollLock:
        return VirtualKey::ScrollLock;
    case Qt::Key_Pause:
        return VirtualKey::Pause;
    case Qt::Key_Left:
        return VirtualKey::Left;
    case Qt::Key_Up:
        return VirtualKey::Up;
    case Qt::Key_Right:
        return VirtualKey::Right;
    case Qt::Key_Down:
        return VirtualKey::Down;
    case Qt::Key_Home:
        return VirtualKey::Home;
    case Qt::Key_End:
        return VirtualKey::End;
    case Qt::Key_PageUp:
        return VirtualKey::PageUp;
    case Qt::Key_PageDown:
        return VirtualKey::PageDown;
    case Qt::Key_Insert:
        return VirtualKey::Insert;
    case Qt::Key_Backspace:
        return VirtualKey::Backspace;
    case Qt::Key_Clear:
        return VirtualKey::Clear;
    case Qt::Key_Cancel:
        return VirtualKey::Cancel;
    case Qt::Key_Select:
        return VirtualKey::Select;
    case Qt::Key_Printer:
        return VirtualKey::Print;
    case Qt::Key_Execute:
        return VirtualKey::Execute;
    case Qt::Key_Print:
        return VirtualKey::PrintScreen;
    case Qt::Key_Help:
        return VirtualKey::Help;
    case Qt::Key_Escape:
        return VirtualKey::Escape;
    case Qt::Key_Space:
        return VirtualKey::Space;
    default:
        return 0;
    }
}

// A propeller of four blades seen from aft, numbered in the order they are scanned.
QPixmap BladeOrderPicture(int order, int size) {
    QPixmap picture(size, size);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF centre(size / 2.0, size / 2.0);
    painter.setBrush(QColor(55, 96, 145));
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(centre, size / 10.0, size / 10.0);
    static constexpr int kBlades = 4;
    for (int blade = 0; blade < kBlades; ++blade) {
        const double angle = -M_PI / 2 + blade * 2 * M_PI / kBlades;
        const QPointF tip = centre + QPointF(std::cos(angle), std::sin(angle)) * (size * 0.30);
        painter.setPen(QPen(QColor(55, 96, 145), 3));
        painter.drawLine(centre, tip);
        const int number = order == 0 ? blade + 1 : (blade == 0 ? 1 : kBlades + 1 - blade);
        const QPointF label = centre + QPointF(std::cos(angle), std::sin(angle)) * (size * 0.42);
        painter.setPen(Qt::black);
        painter.drawText(QRectF(label.x() - 8, label.y() - 8, 16, 16), Qt::AlignCenter,
                         QString::number(number));
    }
    return picture;
}

} // namespace

frmOptions::frmOptions(DAQState* daq, QWidget* parent) : QDialog(parent), daq_(daq) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Settings"));
    setModal(true);
    auto* layout = new QVBoxLayout(this);
    tabOptions_ = new QTabWidget(this);
    tabOptions_->setObjectName(QStringLiteral("tabOptions"));
    const std::array<std::pair<const char*, void (frmOptions::*)(QWidget*)>, 4> tabs = {{
        {"Project", &frmOptions::BuildProjectTab},
        {"Calibration", &frmOptions::BuildCalibrationTab},
        {"Administrator", &frmOptions::BuildAdministratorTab},
        {"Interface", &frmOptions::BuildInterfaceTab},
    }};
    for (const auto& [caption, build] : tabs) {
        auto* tab = new QWidget(tabOptions_);
        tab->setObjectName(QStringLiteral("tab") + QString::fromLatin1(caption));
        (this->*build)(tab);
        tabOptions_->addTab(tab, QString::fromLatin1(caption));
    }
    layout->addWidget(tabOptions_, 1);
    BuildStatusBar();
    layout->addWidget(staMenuBar_);
    form_ = LoadOptionsForm();
    ShowForm();
    Connect();
    resize(560, 460);
}

void frmOptions::Connect() {
    const auto encoderChanged = [this] {
        if (!loading_) {
            UpdateEncoderFields();
        }
    };
    for (QComboBox* combo : {cboAngleEncoderType_, cboRadiusEncoderType_, cboDropEncoderType_}) {
        connect(combo, &QComboBox::currentIndexChanged, this, encoderChanged);
    }
    connect(cboReports_, &QComboBox::currentIndexChanged, this, [this] { cboReports_Click(); });
    connect(cboBladeOrder_, &QComboBox::currentIndexChanged, this, [this] { ShowBladeOrderPicture(); });
    connect(txtDogLegOffset_, &QLineEdit::textEdited, this,
            [](const QString& text) { TakeDogLegOffset(S(text)); });
    connect(cmdCalibrate_, &QPushButton::clicked, this, [this] { cmdCalibrate_Click(); });
    connect(cmdModifyCalibration_, &QPushButton::clicked, this, [this] { cmdModifyCalibration_Click(); });
    connect(cmdLoadCalibration_, &QPushButton::clicked, this, [this] { cmdLoadCalibration_Click(); });
    connect(cmdSaveCalibration_, &QPushButton::clicked, this, [this] { cmdSaveCalibration_Click(); });
    connect(cmdRecommendMessaging_, &QPushButton::clicked, this, [this] { cmdRecommendMessaging_Click(); });
    connect(cmdTestMessaging_, &QPushButton::clicked, this, [this] { cmdTestMessaging_Click(); });
    for (QLineEdit* chooser : {txtLogo_, txtActiveFolder_, txtArchiveFolder_}) {
        chooser->installEventFilter(this);
    }
}

void frmOptions::ShowPath(QLineEdit* field, const std::string& path) {
    field->setText(Q(ShortenedPath(path)));
    field->setToolTip(Q(path));
}

void frmOptions::ShowForm() {
    loading_ = true;
    const OptionsForm& f = form_;
    cboUnits_->setCurrentIndex(f.units);
    txtInspectorName_->setText(Q(f.inspectorName));
    txtRepairShopName_->setText(Q(f.repairShopName));
    txtRepairShopAddress_->setPlainText(
        Q(f.repairShopAddress).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    ShowPath(txtLogo_, f.logoPath);
    txtDefaultManufacturer_->setText(Q(f.defaultManufacturer));
    cboReports_->setCurrentIndex(f.reportLayout);
    txtScanSourceDevice_->setText(Q(f.scanSourceDevice));
    cboAngleEncoderType_->setCurrentIndex(f.angleEncoderIndex);
    cboRadiusEncoderType_->setCurrentIndex(f.radiusEncoderIndex);
    cboDropEncoderType_->setCurrentIndex(f.dropEncoderIndex);
    chkAngleFlip_->setChecked(f.angleFlip);
    chkRadiusFlip_->setChecked(f.radiusFlip);
    chkDropFlip_->setChecked(f.dropFlip);
    txtAngleCalib_->setText(Q(f.angleCalib));
    txtRadiusCalibMM_->setText(Q(f.radiusCalibMM));
    txtDropCalib_->setText(Q(f.dropCalib));
    txtStndOffset_->setText(Q(f.standardOffset));
    txtDogLegOffset_->setText(Q(f.dogLegOffset));
    txtCalibRad_->setText(Q(f.calibRad));
    txtCalibPulse_->setText(Q(f.calibPulse));
    ShowPath(txtActiveFolder_, f.activeFolder);
    ShowPath(txtArchiveFolder_, f.archiveFolder);
    cboEmailMessaging_->setCurrentIndex(cboEmailMessaging_->findData(f.email.messaging));
    chkEmailResolveName_->setChecked(f.email.resolveName);
    cboAudioFeedback_->setCurrentIndex(f.audioFeedback);
    cboFootPedal_->setCurrentIndex(f.footPedal);
    txtTriggerKey_->setText(Q(f.triggerKey));
    cboRulerDisplay_->setCurrentIndex(f.rulerDisplay);
    chkRadiusRulerFlip_->setChecked(f.rulerFlip);
    cboBladeOrder_->setCurrentIndex(f.bladeOrder);
    const int font = cboInterfaceFont_->findData(Q(f.font.name));
    cboInterfaceFont_->setCurrentIndex(font < 0 ? 0 : font);
    txtInterfaceFontSize_->setValue(f.font.size);
    UpdateEncoderFields();
    ShowBladeOrderPicture();
    loading_ = false;
}

void frmOptions::ReadFields() {
    OptionsForm& f = form_;
    f.units = cboUnits_->currentIndex();
    f.inspectorName = S(txtInspectorName_->text());
    f.repairShopName = S(txtRepairShopName_->text());
    f.repairShopAddress = Lines(txtRepairShopAddress_->toPlainText());
    f.defaultManufacturer = S(txtDefaultManufacturer_->text());
    f.reportLayout = cboReports_->currentIndex();
    f.scanSourceDevice = S(txtScanSourceDevice_->text());
    f.angleEncoderIndex = cboAngleEncoderType_->currentIndex();
    f.radiusEncoderIndex = cboRadiusEncoderType_->currentIndex();
    f.dropEncoderIndex = cboDropEncoderType_->currentIndex();
    f.angleFlip = chkAngleFlip_->isChecked();
    f.radiusFlip = chkRadiusFlip_->isChecked();
    f.dropFlip = chkDropFlip_->isChecked();
    f.angleCalib = S(txtAngleCalib_->text());
    f.radiusCalibMM = S(txtRadiusCalibMM_->text());
    f.dropCalib = S(txtDropCalib_->text());
    f.standardOffset = S(txtStndOffset_->text());
    f.dogLegOffset = S(txtDogLegOffset_->text());
    f.calibRad = S(txtCalibRad_->text());
    f.calibPulse = S(txtCalibPulse_->text());
    f.email.messaging = cboEmailMessaging_->currentData().toInt();
    f.email.resolveName = chkEmailResolveName_->isChecked();
    f.audioFeedback = cboAudioFeedback_->currentIndex();
    f.footPedal = cboFootPedal_->currentIndex();
    f.triggerKey = S(txtTriggerKey_->text());
    f.rulerDisplay = cboRulerDisplay_->currentIndex();
    f.rulerFlip = chkRadiusRulerFlip_->isChecked();
    f.bladeOrder = cboBladeOrder_->currentIndex();
    f.font.name = S(cboInterfaceFont_->currentData().toString());
    f.font.size = txtInterfaceFontSize_->value();
}

OptionsForm frmOptions::Form() {
    ReadFields();
    return form_;
}

void frmOptions::UpdateEncoderFields() {
    const EncoderFieldStates s = corvane::UpdateEncoderFields(cboAngleEncoderType_->currentIndex(),
                                                              cboRadiusEncoderType_->currentIndex(),
                                                              cboDropEncoderType_->currentIndex());
    txtAngleCalib_->setReadOnly(s.angleCalibLocked);
    chkAngleFlip_->setEnabled(s.angleFlipEnabled);
    txtRadiusCalibMM_->setReadOnly(s.radiusCalibLocked);
    chkRadiusFlip_->setEnabled(s.radiusFlipEnabled);
    cmdCalibrate_->setEnabled(s.calibrateEnabled);
    cmdModifyCalibration_->setEnabled(s.modifyCalibrationEnabled);
    cboRulerDisplay_->setEnabled(s.rulerEnabled);
    chkRadiusRulerFlip_->setEnabled(s.rulerFlipEnabled);
    txtDropCalib_->setReadOnly(s.dropCalibLocked);
    chkDropFlip_->setEnabled(s.dropFlipEnabled);
}

void frmOptions::ShowBladeOrderPicture() {
    picBladeOrder_->setPixmap(BladeOrderPicture(cboBladeOrder_->currentIndex(), picBladeOrder_->width()));
}

bool frmOptions::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtTriggerKey_ && event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        txtTriggerKey_->setText(
            Q(TriggerKeyDown(VirtualKeyOf(key), S(key.text()), S(txtTriggerKey_->text()))));
        return true; // the key itself is dropped
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        if (watched == txtLogo_) {
            txtLogo_Click();
        } else if (watched == txtActiveFolder_ || watched == txtArchiveFolder_) {
            txtFolder_Click(watched == txtArchiveFolder_);
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmOptions::cboReports_Click() {
    if (loading_) {
        return;
    }
    const int layout = cboReports_->currentIndex();
    if (layout == 3) {
        // The custom paper in inches, in place of the printer set-up of the report control.
        ReportPageData custom = form_.page;
        const auto width = Prompts().InputBox("Paper width (in):", "User Defined Paper",
                                              FormatPoint(custom.paperSizeUserWidth, "0.0##"));
        const auto height = width ? Prompts().InputBox("Paper height (in):", "User Defined Paper",
                                                       FormatPoint(custom.paperSizeUserHeight, "0.0##"))
                                  : std::nullopt;
        if (width && height && StringToDouble(*width) > 0 && StringToDouble(*height) > 0) {
            custom.paperSizeUserWidth = StringToDouble(*width);
            custom.paperSizeUserHeight = StringToDouble(*height);
        }
        form_.page = ReportLayoutPageData(3, custom);
    } else {
        form_.page = ReportLayoutPageData(layout);
    }
}

void frmOptions::txtLogo_Click() {
    clsFileDialog dialog;
    dialog.DialogTitle = "Open file...";
    dialog.Filters = {{"All image files (*.bmp, *.jpg)", "*.bmp;*.jpg"},
                      {"JPEG (*.jpg)", "*.jpg"},
                      {"BMP (*.bmp)", "*.bmp"}};
    dialog.InitDir = FolderOf(form_.logoPath);
    dialog.Parent = this;
    if (dialog.ShowOpen()) {
        form_.logoPath = dialog.FileName;
        ShowPath(txtLogo_, form_.logoPath);
    }
}

void frmOptions::txtFolder_Click(bool archive) {
    clsFileDialog dialog;
    dialog.DialogTitle = archive ? "Select archive directory..." : "Select active directory...";
    dialog.InitDir = archive ? form_.archiveFolder : form_.activeFolder;
    dialog.Parent = this;
    if (!dialog.ShowOpenFolder()) {
        return;
    }
    (archive ? form_.archiveFolder : form_.activeFolder) = dialog.FileName;
    ShowPath(txtActiveFolder_, form_.activeFolder);
    ShowPath(txtArchiveFolder_, form_.archiveFolder);
}

void frmOptions::cmdCalibrate_Click() {
    ReadFields();
    RunGuidedCalibration(daq_, form_, *this);
}

void frmOptions::cmdModifyCalibration_Click() {
    ReadFields();
    RunManualCalibrationEdit(form_, *this);
}

void frmOptions::cmdLoadCalibration_Click() {
    clsFileDialog dialog;
    dialog.DialogTitle = "Load Calibration Settings...";
    dialog.Filters = {{"Corvane Settings (*.cvst)", "*.cvst"}, {"Hale MRI Settings (*.txt)", "*.txt"}};
    dialog.Parent = this;
    if (!dialog.ShowOpen()) {
        return;
    }
    ReadFields();
    if (LoadCalibrationIntoForm(dialog.FileName, dialog.FilterIndex, form_) == 1) {
        FieldsChanged();
    }
}

void frmOptions::cmdSaveCalibration_Click() {
    clsFileDialog dialog;
    dialog.DialogTitle = "Save Calibration Settings...";
    dialog.Filters = {{"Corvane Settings (*.cvst)", "*.cvst"}};
    dialog.FileName = ProposedCalibrationFileName(Clock().Now());
    dialog.Parent = this;
    if (dialog.ShowSave()) {
        ReadFields();
        (void)SaveCalibrationFromForm(dialog.FileName, form_);
    }
}

void frmOptions::cmdRecommendMessaging_Click() {
    ReadFields();
    RunEmailTestPrompt(form_.email);
    FieldsChanged();
}

void frmOptions::cmdTestMessaging_Click() {
    ReadFields();
    RunEmailTest(form_.email);
    FieldsChanged();
}

void frmOptions::SaveOptions() {
    ReadFields();
    ApplyFolderFallbacks(form_.activeFolder, form_.archiveFolder);
    corvane::SaveOptions(form_);
    // What was saved is in force at once: a calibration programs the counters with it.
    ReadDefaultOptions();
    FieldsChanged();
}

void frmOptions::LockForCalibration(bool locked) {
    cmdModifyCalibration_->setEnabled(!locked);
    tabOptions_->tabBar()->setEnabled(!locked);
    staMenuBar_->setEnabled(!locked);
    for (QLineEdit* field : {txtScanSourceDevice_, txtAngleCalib_, txtRadiusCalibMM_, txtDropCalib_,
                             txtStndOffset_, txtDogLegOffset_}) {
        field->setReadOnly(locked);
    }
    if (!locked) {
        UpdateEncoderFields();
    }
}

void frmOptions::FieldsChanged() {
    const bool wasLoading = loading_;
    const bool tabsOpen = staMenuBar_->isEnabled();
    ShowForm();
    loading_ = wasLoading;
    if (!tabsOpen) {
        LockForCalibration(true);
    }
}

void frmOptions::ClickOK() {
    SaveOptions();
    saved_ = true;
    accept();
}

void frmOptions::ClickCancel() {
    reject();
}

} // namespace corvane
