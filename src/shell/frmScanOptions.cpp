#include "shell/frmScanOptions.h"

#include "model/Globals.h"

#include <QComboBox>
#include <QFormLayout>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

namespace corvane {

frmScanOptions::frmScanOptions(QWidget* parent) : QDialog(parent), cboScanMode_(new QComboBox(this)) {
    setObjectName(QStringLiteral("frmScanOptions"));
    setWindowTitle(QStringLiteral("Scan Options"));
    setModal(true);
    cboScanMode_->setObjectName(QStringLiteral("cboScanMode"));
    cboScanMode_->addItems({QStringLiteral("All blades per radius"), QStringLiteral("All radii per blade")});
    cboScanMode_->setCurrentIndex(gScanOrderMode == 1 ? 1 : 0);
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout();
    form->addRow(QStringLiteral("Scan order:"), cboScanMode_);
    layout->addLayout(form);
    auto* bar = new QStatusBar(this);
    bar->setObjectName(QStringLiteral("staMenuBar"));
    bar->setSizeGripEnabled(false);
    auto* ok = new QPushButton(QStringLiteral("OK"), bar);
    ok->setObjectName(QStringLiteral("staMenuBarOK"));
    ok->setFlat(true);
    ok->setMinimumWidth(90);
    bar->addPermanentWidget(ok);
    connect(ok, &QPushButton::clicked, this, [this] { ClickOK(); });
    layout->addWidget(bar);
}

void frmScanOptions::ClickOK() {
    gScanOrderMode = static_cast<std::int16_t>(cboScanMode_->currentIndex());
    accept();
}

} // namespace corvane
