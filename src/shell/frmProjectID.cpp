// The model comes before any Qt header: Qt's "slots" keyword macro would break its headers.
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "support/Services.h"

#include "shell/frmProjectID.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvane {

frmProjectID::frmProjectID(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      txtProjectID_(new QLineEdit(this)), cmdOK_(new QPushButton(QStringLiteral("OK"), this)),
      cmdCancel_(new QPushButton(QStringLiteral("Cancel"), this)) {
    setObjectName(QStringLiteral("frmProjectID"));
    setWindowTitle(QStringLiteral("Project ID"));
    setModal(true);

    auto* label = new QLabel(QStringLiteral("New Project ID:"), this);
    label->setObjectName(QStringLiteral("lblProjectID"));
    label->setBuddy(txtProjectID_);
    txtProjectID_->setObjectName(QStringLiteral("txtProjectID"));
    cmdOK_->setObjectName(QStringLiteral("cmdOK"));
    cmdOK_->setDefault(true);
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    connect(cmdOK_, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    connect(cmdCancel_, &QPushButton::clicked, this, &frmProjectID::reject);

    auto* buttons = new QHBoxLayout();
    buttons->addStretch();
    buttons->addWidget(cmdOK_);
    buttons->addWidget(cmdCancel_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(txtProjectID_);
    layout->addLayout(buttons);
    resize(340, sizeHint().height());
}

bool frmProjectID::AskNewProjectID(QWidget* parent) {
    frmProjectID dialog(parent);
    return dialog.exec() == QDialog::Accepted;
}

void frmProjectID::cmdOK_Click() {
    // The ID becomes the stem of the file name: blanks around it are never meant.
    const std::string id = txtProjectID_->text().trimmed().toStdString();
    if (id.empty()) {
        Prompts().MessageBox("New project ID can not be empty", MsgBox::Exclamation, "Project ID");
        return;
    }
    if (!gProject)
        return;
    if (id == gProject->ProjectID()) {
        Prompts().MessageBox("New project ID must be different from previous project ID ",
                             MsgBox::Exclamation, "Project ID");
        return;
    }
    gProject->SetProjectID(id);
    emit projectIDChanged();
    accept();
}

void frmProjectID::reject() {
    txtProjectID_->clear();
    QDialog::reject();
}

} // namespace corvane
