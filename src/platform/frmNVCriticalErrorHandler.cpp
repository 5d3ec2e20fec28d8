#include "platform/frmNVCriticalErrorHandler.h"

#include "files/modProjectFile.h"
#include "model/Globals.h"
#include "reports/modErrorReport.h"
#include "support/Services.h"

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace corvane {
namespace {

// Window sizes in logical pixels (15 twips each): 7200 by 4200 twips with the e-mail part,
// 2775 twips high without it.
constexpr int kWidth = 480;
constexpr int kHeightWithEmail = 280;
constexpr int kHeightWithoutEmail = 185;

QString Plain(const std::string& text) {
    return QString::fromStdString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

} // namespace

frmNVCriticalErrorHandler::frmNVCriticalErrorHandler(const std::string& report, bool showEmail,
                                                     bool showAbort, QWidget* parent, ProjectCopy projectCopy)
    : QDialog(parent,
              Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint),
      txtErrorMsg_(new QPlainTextEdit(this)),
      chkAbortAndClose_(new QCheckBox(QStringLiteral("Abort and close application"), this)),
      cmdOK_(new QPushButton(QStringLiteral("OK"), this)),
      lblEmailNV_(new QLabel(QStringLiteral("Email Norvelle information about this error:"), this)),
      chkIncludeData_(new QCheckBox(QStringLiteral("Include current project data"), this)),
      cmdEmail_(new QPushButton(QStringLiteral("&Email Norvelle"), this)), answer_(Answer::Ignore),
      report_(report), projectCopy_(std::move(projectCopy)) {
    setObjectName(QStringLiteral("frmNVCriticalErrorHandler"));
    setWindowTitle(QString::fromStdString(gAppTitle + " Error"));
    setModal(true);

    auto* icon = new QLabel(this);
    icon->setObjectName(QStringLiteral("Image1"));
    const int iconSize = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxCritical, nullptr, this).pixmap(iconSize));
    icon->setAlignment(Qt::AlignTop | Qt::AlignHCenter);

    txtErrorMsg_->setObjectName(QStringLiteral("txtErrorMsg"));
    txtErrorMsg_->setReadOnly(true);
    txtErrorMsg_->setPlainText(Plain(report));
    txtErrorMsg_->viewport()->installEventFilter(this);

    chkAbortAndClose_->setObjectName(QStringLiteral("chkAbortAndClose"));
    chkAbortAndClose_->setVisible(showAbort);
    chkAbortAndClose_->setEnabled(showAbort);
    cmdOK_->setObjectName(QStringLiteral("cmdOK"));
    cmdOK_->setDefault(true);
    cmdOK_->setAutoDefault(true);
    connect(cmdOK_, &QPushButton::clicked, this, [this] { cmdOK_Click(); });

    // The e-mail part is shown with the option; the dialog stays open after sending.
    lblEmailNV_->setObjectName(QStringLiteral("lblEmailNV"));
    chkIncludeData_->setObjectName(QStringLiteral("chkIncludeData"));
    cmdEmail_->setObjectName(QStringLiteral("cmdEmail"));
    lblEmailNV_->setVisible(showEmail);
    chkIncludeData_->setVisible(showEmail);
    chkIncludeData_->setEnabled(showEmail);
    cmdEmail_->setVisible(showEmail);
    cmdEmail_->setEnabled(showEmail);
    cmdEmail_->setAutoDefault(false);
    connect(cmdEmail_, &QPushButton::clicked, this, [this] { cmdEmail_Click(); });

    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout();
    top->addWidget(icon);
    top->addWidget(txtErrorMsg_, 1);
    layout->addLayout(top, 1);
    auto* okRow = new QHBoxLayout();
    okRow->addWidget(chkAbortAndClose_);
    okRow->addStretch(1);
    okRow->addWidget(cmdOK_);
    layout->addLayout(okRow);
    if (showEmail) {
        layout->addWidget(lblEmailNV_);
        auto* emailRow = new QHBoxLayout();
        emailRow->addWidget(chkIncludeData_);
        emailRow->addStretch(1);
        emailRow->addWidget(cmdEmail_);
        layout->addLayout(emailRow);
    }
    const int height = showEmail ? kHeightWithEmail : kHeightWithoutEmail;
    resize(kWidth, std::max(height, minimumSizeHint().height()));
    cmdOK_->setFocus();
}

int frmNVCriticalErrorHandler::ShowModal() {
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    exec();
    QApplication::restoreOverrideCursor();
    return answer_;
}

void frmNVCriticalErrorHandler::cmdOK_Click() {
    const bool abort = chkAbortAndClose_->isEnabled() && chkAbortAndClose_->isChecked();
    CloseWith(abort ? Answer::Abort : Answer::Ignore);
}

ProjectCopy frmNVCriticalErrorHandler::OpenProjectCopy() {
    return [](const std::string& path) { return gProject && WriteProjectFile(path) == 1; };
}

void frmNVCriticalErrorHandler::cmdEmail_Click() {
    const bool includeData = chkIncludeData_->isEnabled() && chkIncludeData_->isChecked();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const int status = SendCriticalErrorEmail(report_, includeData ? projectCopy_ : ProjectCopy{});
    QApplication::restoreOverrideCursor();
    (void)status; // a failure was told to the user; the dialog stays for a second try
}

void frmNVCriticalErrorHandler::CloseWith(int answer) {
    answer_ = answer;
    done(answer);
}

bool frmNVCriticalErrorHandler::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtErrorMsg_->viewport() && event->type() == QEvent::MouseButtonDblClick) {
        CloseWith(Answer::Retry);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace corvane
