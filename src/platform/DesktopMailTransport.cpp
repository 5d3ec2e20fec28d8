#include "platform/DesktopMailTransport.h"

#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace corvane {
namespace {

// xdg-email's exit codes: 0 done, 3 a tool it needs is missing; -2 it could not be started.
constexpr int kToolMissing = 3;
constexpr int kNotStarted = -2;
constexpr int kHandOverTimeoutMs = 60000;

QString Text(const std::string& text) {
    return QString::fromStdString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

} // namespace

DesktopMailTransport::DesktopMailTransport(QString mailProgram) : mailProgram_(std::move(mailProgram)) {}

QString DesktopMailTransport::DefaultMailProgram() {
#if defined(Q_OS_LINUX) || defined(Q_OS_FREEBSD)
    return QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
#else
    return {};
#endif
}

int DesktopMailTransport::Send(const MailMessage& message) {
    if (mailProgram_.isEmpty()) {
        return SendByMailto(message);
    }
    QStringList arguments{QStringLiteral("--utf8"), QStringLiteral("--subject"), Text(message.subject),
                          QStringLiteral("--body"), Text(message.text)};
    for (const MailAttachment& attachment : message.attachments) {
        arguments << QStringLiteral("--attach")
                  << QFileInfo(QString::fromStdString(attachment.path)).absoluteFilePath();
    }
    arguments << QString::fromStdString(message.recipient);
    QProcess process;
    process.start(mailProgram_, arguments);
    if (!process.waitForStarted()) {
        return SendByMailto(message);
    }
    process.waitForFinished(kHandOverTimeoutMs);
    const int code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    if (code == 0) {
        return 1;
    }
    if (code == kToolMissing || code == kNotStarted) {
        return SendByMailto(message);
    }
    return -1;
}

std::string DesktopMailTransport::TextWithAttachmentFolder(const MailMessage& message,
                                                           const QString& folder) {
    std::string text = message.text;
    if (!message.attachments.empty()) {
        text += "\r\n\r\nPlease attach these files from the folder " +
                QDir::toNativeSeparators(folder).toStdString() + ":";
        for (const MailAttachment& attachment : message.attachments) {
            text += "\r\n  " + attachment.name;
        }
    }
    return text;
}

int DesktopMailTransport::SendByMailto(const MailMessage& message) {
    QString folder;
    if (!message.attachments.empty()) {
        // The files wait in a folder of their own, so that a later report cannot replace them.
        folder = QDir(QStandardPaths::writableLocation(QStandardPaths::TempLocation))
                     .filePath(QStringLiteral("corvane-mail-") +
                               QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss-zzz")));
        if (!QDir().mkpath(folder)) {
            return -1;
        }
        for (const MailAttachment& attachment : message.attachments) {
            const QString target = QDir(folder).filePath(QString::fromStdString(attachment.name));
            if (!QFile::copy(QString::fromStdString(attachment.path), target)) {
                return -1;
            }
        }
    }
    QUrl url;
    url.setScheme(QStringLiteral("mailto"));
    url.setPath(QString::fromStdString(message.recipient));
    // Percent-encoded by hand: a "&" or "+" in the text must not end or change a field.
    const QByteArray query = "subject=" + QUrl::toPercentEncoding(Text(message.subject)) + "&body=" +
                             QUrl::toPercentEncoding(Text(TextWithAttachmentFolder(message, folder)));
    url.setQuery(QString::fromLatin1(query), QUrl::StrictMode);
    return QDesktopServices::openUrl(url) ? 1 : -1;
}

std::string DesktopMailTransport::DefaultClientName() {
    if (clientName_) {
        return *clientName_;
    }
    std::string name;
#if defined(Q_OS_LINUX) || defined(Q_OS_FREEBSD)
    QProcess query;
    query.start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"),
                                             QStringLiteral("x-scheme-handler/mailto")});
    if (query.waitForFinished(2000)) {
        const QString desktop = QString::fromUtf8(query.readAllStandardOutput()).trimmed().toLower();
        if (desktop.contains(QStringLiteral("thunderbird"))) {
            name = "Mozilla Thunderbird";
        } else if (!desktop.isEmpty()) {
            name = desktop.toStdString();
        }
    }
#endif
    clientName_ = name;
    return name;
}

} // namespace corvane
