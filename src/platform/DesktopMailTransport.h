#pragma once

#include "support/MailTransport.h"

#include <QString>

#include <optional>

namespace corvane {

// Hands a message to the desktop's mail program. On Linux every route goes through xdg-email,
// which opens the user's composer with the attachments; where that tool is missing, and on
// systems without such a tool, a mailto link opens the composer and the attachments wait in a
// folder that the message text names, for the user to add by hand.
class DesktopMailTransport : public IMailTransport {
public:
    // mailProgram: the hand-over tool to run ("xdg-email" where the system has it, "" for the
    // mailto hand-over only).
    explicit DesktopMailTransport(QString mailProgram = DefaultMailProgram());

    int Send(const MailMessage& message) override;
    std::string DefaultClientName() override;

    static QString DefaultMailProgram();
    // The message text of a mailto hand-over: the text, then where the attachments wait.
    static std::string TextWithAttachmentFolder(const MailMessage& message, const QString& folder);

private:
    int SendByMailto(const MailMessage& message);

    QString mailProgram_;
    std::optional<std::string> clientName_;
};

} // namespace corvane
