#include "platform/DesktopMailTransport.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace corvane {
namespace {

// A stand-in for xdg-email that writes its arguments, one a line, and ends with the code given.
QString FakeMailProgram(const QTemporaryDir& dir, int exitCode) {
    const QString path = dir.filePath(QStringLiteral("fake-xdg-email"));
    QFile script(path);
    EXPECT_TRUE(script.open(QIODevice::WriteOnly));
    script.write(
        QStringLiteral("#!/bin/sh\nfor a in \"$@\"; do printf '%s\\n' \"$a\"; done > '%1'\nexit %2\n")
            .arg(dir.filePath(QStringLiteral("args.txt")))
            .arg(exitCode)
            .toUtf8());
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

// Every route hands the message with its attachments to the desktop's tool; a tool that fails
// is a failure of the send.
TEST(DesktopMailTransportTest, TheHandOverCarriesSubjectTextAndEveryAttachment) {
    QTemporaryDir dir;
    const QString log = dir.filePath(QStringLiteral("corvaneError.log"));
    QFile(log).open(QIODevice::WriteOnly);
    MailMessage message;
    message.recipient = "support@corvane.example";
    message.subject = "Corvane Error Report";
    message.text = "Line 1\r\nLine 2 & more";
    message.attachments = {{"corvaneError.log", log.toStdString()}};
    message.messaging = 2;

    DesktopMailTransport transport(FakeMailProgram(dir, 0));
    EXPECT_EQ(transport.Send(message), 1);
    QFile args(dir.filePath(QStringLiteral("args.txt")));
    ASSERT_TRUE(args.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(args.readAll()),
              QStringLiteral(
                  "--utf8\n--subject\nCorvane Error Report\n--body\nLine 1\nLine 2 & more\n--attach\n%1\n"
                  "support@corvane.example\n")
                  .arg(log));
    EXPECT_EQ(DesktopMailTransport(FakeMailProgram(dir, 4)).Send(message), -1);
    EXPECT_NE(DesktopMailTransport::TextWithAttachmentFolder(message, QStringLiteral("/tmp/x"))
                  .find("from the folder /tmp/x:\r\n  corvaneError.log"),
              std::string::npos);
}

} // namespace
} // namespace corvane
