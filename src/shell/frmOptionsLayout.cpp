// The Settings dialog's controls, tab by tab; frmOptions.cpp holds what they do.

#include "model/clsUnits.h"
#include "shell/frmOptions.h"
#include "support/modNVEmailClient.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace corvane {
namespace {

template <typename Widget> Widget* Named(Widget* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QComboBox* Combo(QWidget* parent, const char* name, const QStringList& items) {
    auto* combo = Named(new QComboBox(parent), name);
    combo->addItems(items);
    return combo;
}

QLineEdit* Edit(QWidget* parent, const char* name) {
    return Named(new QLineEdit(parent), name);
}

// A read-only field that opens a chooser when clicked.
QLineEdit* ChooserField(QWidget* parent, const char* name) {
    auto* field = Edit(parent, name);
    field->setReadOnly(true);
    field->setCursor(Qt::PointingHandCursor);
    return field;
}

} // namespace

void frmOptions::BuildProjectTab(QWidget* tab) {
    auto* form = new QFormLayout(tab);
    clsUnits units;
    QStringList unitNames;
    for (int i = 0; i < 4; ++i) {
        unitNames << QString::fromStdString(units.GetUnitPropLengthLabel(i));
    }
    cboUnits_ = Combo(tab, "cboUnits", unitNames);
    txtInspectorName_ = Edit(tab, "txtInspectorName");
    txtRepairShopName_ = Edit(tab, "txtRepairShopName");
    txtRepairShopAddress_ = Named(new QPlainTextEdit(tab), "txtRepairShopAddress");
    txtRepairShopAddress_->setTabChangesFocus(true);
    txtRepairShopAddress_->setMinimumHeight(96);
    txtLogo_ = ChooserField(tab, "txtLogo");
    txtDefaultManufacturer_ = Edit(tab, "txtDefaultManufacturer");
    cboReports_ = Combo(tab, "cboReports",
                        {QStringLiteral("Letter (8.5 in x 11 in) "), QStringLiteral("A4 (21.0 cm x 29.7 cm)"),
                         QStringLiteral("Legal (8.5 in x 14 in)"), QStringLiteral("User Defined (in)")});
    form->addRow(QStringLiteral("Units:"), cboUnits_);
    form->addRow(QStringLiteral("Inspector:"), txtInspectorName_);
    form->addRow(QStringLiteral("Repair shop:"), txtRepairShopName_);
    form->addRow(QStringLiteral("Address:"), txtRepairShopAddress_);
    form->addRow(QStringLiteral("Logo:"), txtLogo_);
    form->addRow(QStringLiteral("Manufacturer:"), txtDefaultManufacturer_);
    form->addRow(QStringLiteral("Report layout:"), cboReports_);
}

void frmOptions::BuildCalibrationTab(QWidget* tab) {
    auto* outer = new QVBoxLayout(tab);
    auto* device = new QFormLayout();
    txtScanSourceDevice_ = Edit(tab, "txtScanSourceDevice");
    device->addRow(QStringLiteral("Device:"), txtScanSourceDevice_);
    outer->addLayout(device);

    auto* encoders = Named(new QGroupBox(QStringLiteral("Encoders"), tab), "fraEncoders");
    auto* grid = new QGridLayout(encoders);
    const QStringList onOff{QStringLiteral("Off"), QStringLiteral("On")};
    cboAngleEncoderType_ = Combo(encoders, "cboAngleEncoderType", onOff);
    cboRadiusEncoderType_ = Combo(encoders, "cboRadiusEncoderType", onOff);
    cboDropEncoderType_ =
        Combo(encoders, "cboDropEncoderType",
              {QStringLiteral("Off"), QStringLiteral("Dual channel"), QStringLiteral("Single channel")});
    chkAngleFlip_ = Named(new QCheckBox(QStringLiteral("Flip"), encoders), "chkAngleFlip");
    chkRadiusFlip_ = Named(new QCheckBox(QStringLiteral("Flip"), encoders), "chkRadiusFlip");
    chkDropFlip_ = Named(new QCheckBox(QStringLiteral("Flip"), encoders), "chkDropFlip");
    txtAngleCalib_ = Edit(encoders, "txtAngleCalib");
    txtRadiusCalibMM_ = Edit(encoders, "txtRadiusCalibMM");
    txtDropCalib_ = Edit(encoders, "txtDropCalib");
    grid->addWidget(new QLabel(QStringLiteral("Encoder"), encoders), 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Calibration"), encoders), 0, 3);
    const auto row = [&](int r, const QString& caption, QComboBox* type, QCheckBox* flip, QLineEdit* calib,
                         const QString& unit) {
        grid->addWidget(new QLabel(caption, encoders), r, 0);
        grid->addWidget(type, r, 1);
        grid->addWidget(flip, r, 2);
        grid->addWidget(calib, r, 3);
        auto* label = new QLabel(unit, encoders);
        if (r == 2) {
            label->setObjectName(QStringLiteral("lblUnitsMM"));
        }
        grid->addWidget(label, r, 4);
    };
    row(1, QStringLiteral("Angle:"), cboAngleEncoderType_, chkAngleFlip_, txtAngleCalib_,
        QStringLiteral("counts/rev"));
    row(2, QStringLiteral("Radius:"), cboRadiusEncoderType_, chkRadiusFlip_, txtRadiusCalibMM_,
        QStringLiteral("counts/mm"));
    row(3, QStringLiteral("Drop:"), cboDropEncoderType_, chkDropFlip_, txtDropCalib_,
        QStringLiteral("counts/mm"));
    outer->addWidget(encoders);

    auto* probe = Named(new QGroupBox(QStringLiteral("Probe and reference point"), tab), "picCalibration");
    auto* probeForm = new QGridLayout(probe);
    txtStndOffset_ = Edit(probe, "txtStndOffset");
    txtDogLegOffset_ = Edit(probe, "txtDogLegOffset");
    txtCalibRad_ = Edit(probe, "txtCalibRad");
    txtCalibPulse_ = Edit(probe, "txtCalibPulse");
    txtCalibRad_->setReadOnly(true);
    txtCalibPulse_->setReadOnly(true);
    probeForm->addWidget(new QLabel(QStringLiteral("Standard offset (mm):"), probe), 0, 0);
    probeForm->addWidget(txtStndOffset_, 0, 1);
    probeForm->addWidget(new QLabel(QStringLiteral("Dog-leg offset (mm):"), probe), 0, 2);
    probeForm->addWidget(txtDogLegOffset_, 0, 3);
    probeForm->addWidget(new QLabel(QStringLiteral("Calibration radius (mm):"), probe), 1, 0);
    probeForm->addWidget(txtCalibRad_, 1, 1);
    probeForm->addWidget(new QLabel(QStringLiteral("Calibration pulse:"), probe), 1, 2);
    probeForm->addWidget(txtCalibPulse_, 1, 3);
    outer->addWidget(probe);

    auto* buttons = new QHBoxLayout();
    cmdCalibrate_ = Named(new QPushButton(QStringLiteral("Calibrate..."), tab), "cmdCalibrate");
    cmdModifyCalibration_ = Named(new QPushButton(QStringLiteral("Modify..."), tab), "cmdModifyCalibration");
    cmdLoadCalibration_ = Named(new QPushButton(QStringLiteral("Load..."), tab), "cmdLoadCalibration");
    cmdSaveCalibration_ = Named(new QPushButton(QStringLiteral("Save..."), tab), "cmdSaveCalibration");
    for (QPushButton* button :
         {cmdCalibrate_, cmdModifyCalibration_, cmdLoadCalibration_, cmdSaveCalibration_}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    outer->addLayout(buttons);
    outer->addStretch(1);
}

void frmOptions::BuildAdministratorTab(QWidget* tab) {
    auto* outer = new QVBoxLayout(tab);
    auto* folders = new QFormLayout();
    txtActiveFolder_ = ChooserField(tab, "txtActiveFolder");
    txtArchiveFolder_ = ChooserField(tab, "txtArchiveFolder");
    folders->addRow(QStringLiteral("Project library:"), txtActiveFolder_);
    folders->addRow(QStringLiteral("Project archive:"), txtArchiveFolder_);
    outer->addLayout(folders);

    auto* email = Named(new QGroupBox(QStringLiteral("Email"), tab), "fraEmail");
    auto* emailForm = new QGridLayout(email);
    cboEmailMessaging_ = Named(new QComboBox(email), "cboEmailMessaging");
    for (const auto& [label, index] : EmailMessagingList()) {
        cboEmailMessaging_->addItem(QString::fromStdString(label), index);
    }
    chkEmailResolveName_ = Named(new QCheckBox(QStringLiteral("Resolve name"), email), "chkEmailResolveName");
    cmdRecommendMessaging_ =
        Named(new QPushButton(QStringLiteral("Recommend..."), email), "cmdRecommendMessaging");
    cmdTestMessaging_ = Named(new QPushButton(QStringLiteral("Test..."), email), "cmdTestMessaging");
    cmdRecommendMessaging_->setAutoDefault(false);
    cmdTestMessaging_->setAutoDefault(false);
    emailForm->addWidget(new QLabel(QStringLiteral("Email messaging:"), email), 0, 0);
    emailForm->addWidget(cboEmailMessaging_, 0, 1);
    emailForm->addWidget(chkEmailResolveName_, 0, 2);
    emailForm->addWidget(cmdRecommendMessaging_, 1, 1);
    emailForm->addWidget(cmdTestMessaging_, 1, 2);
    outer->addWidget(email);
    outer->addStretch(1);
}

void frmOptions::BuildInterfaceTab(QWidget* tab) {
    auto* form = new QFormLayout(tab);
    const QStringList onOff{QStringLiteral("Off"), QStringLiteral("On")};
    cboAudioFeedback_ = Combo(tab, "cboAudioFeedback", onOff);
    cboFootPedal_ = Combo(tab, "cboFootPedal", onOff);
    txtTriggerKey_ = Edit(tab, "txtTriggerKey");
    txtTriggerKey_->installEventFilter(this);
    auto* ruler = new QHBoxLayout();
    cboRulerDisplay_ =
        Combo(tab, "cboRulerDisplay",
              {QStringLiteral("ft"), QStringLiteral("m"), QStringLiteral("in"), QStringLiteral("mm")});
    chkRadiusRulerFlip_ = Named(new QCheckBox(QStringLiteral("Flip"), tab), "chkRadiusRulerFlip");
    ruler->addWidget(cboRulerDisplay_);
    ruler->addWidget(chkRadiusRulerFlip_);
    ruler->addStretch(1);
    auto* order = new QHBoxLayout();
    cboBladeOrder_ =
        Combo(tab, "cboBladeOrder",
              {QStringLiteral("Blade order (1,2,3,4..)"), QStringLiteral("Rotation direction (1,4,3,2..)")});
    picBladeOrder_ = Named(new QLabel(tab), "picBladeOrder");
    picBladeOrder_->setFixedSize(64, 64);
    order->addWidget(cboBladeOrder_);
    order->addWidget(picBladeOrder_);
    order->addStretch(1);
    auto* font = new QHBoxLayout();
    cboInterfaceFont_ = Named(new QComboBox(tab), "cboInterfaceFont");
    cboInterfaceFont_->addItem(QStringLiteral("Automatic"), QString());
    for (const QString& family : QFontDatabase::families()) {
        cboInterfaceFont_->addItem(family, family);
    }
    txtInterfaceFontSize_ = Named(new QDoubleSpinBox(tab), "txtInterfaceFontSize");
    txtInterfaceFontSize_->setRange(0, 24);
    txtInterfaceFontSize_->setDecimals(2);
    txtInterfaceFontSize_->setSingleStep(0.25);
    txtInterfaceFontSize_->setSpecialValueText(QStringLiteral("Automatic"));
    txtInterfaceFontSize_->setMinimumWidth(110);
    font->addWidget(cboInterfaceFont_, 1);
    font->addWidget(txtInterfaceFontSize_);
    form->addRow(QStringLiteral("Audio feedback:"), cboAudioFeedback_);
    form->addRow(QStringLiteral("External trigger:"), cboFootPedal_);
    form->addRow(QStringLiteral("Keyboard trigger:"), txtTriggerKey_);
    form->addRow(QStringLiteral("Display ruler:"), ruler);
    form->addRow(QStringLiteral("Scan order:"), order);
    form->addRow(QStringLiteral("Interface font:"), font);
}

void frmOptions::BuildStatusBar() {
    staMenuBar_ = Named(new QStatusBar(this), "staMenuBar");
    staMenuBar_->setSizeGripEnabled(false);
    for (const char* caption : {"OK", "Cancel", "Help"}) {
        auto* panel = new QPushButton(QString::fromLatin1(caption), staMenuBar_);
        panel->setObjectName(QStringLiteral("staMenuBar") + QString::fromLatin1(caption));
        panel->setFlat(true);
        panel->setAutoDefault(false);
        panel->setMinimumWidth(90);
        staMenuBar_->addPermanentWidget(panel);
        if (QLatin1String(caption) == QLatin1String("OK")) {
            connect(panel, &QPushButton::clicked, this, [this] { ClickOK(); });
        } else if (QLatin1String(caption) == QLatin1String("Cancel")) {
            connect(panel, &QPushButton::clicked, this, [this] { ClickCancel(); });
        } else {
            connect(panel, &QPushButton::clicked, this, [this] { emit HelpRequested(); });
        }
    }
}

} // namespace corvane
