#pragma once

// The hand-over of one e-mail message to the station's mail program. The core composes the
// message (modNVEmailClient) and the transport delivers it to the desktop: the user sees the
// message in the mail program and sends it from there. Nothing here speaks to a mail server.

#include <string>
#include <vector>

namespace corvane {

struct MailAttachment {
    std::string name; // the name the mail program shows
    std::string path; // an existing file
};

struct MailMessage {
    std::string recipient;
    std::string subject;
    std::string text;
    std::vector<MailAttachment> attachments;
    bool resolveName = false;
    // The route the user chose: 0 MAPI/Control, 1 MAPI/Direct, 2 MAPI/CDO. Where the system has
    // no such routes every route is the desktop's own hand-over.
    int messaging = 0;
};

class IMailTransport {
public:
    virtual ~IMailTransport() = default;
    // 1 when the mail program took the message, -1 when there is none or it refused, -3 when
    // the user cancelled.
    virtual int Send(const MailMessage& message) = 0;
    // The name of the station's default mail program ("Mozilla Thunderbird"), "" when unknown.
    virtual std::string DefaultClientName() = 0;
};

// A transport that keeps every message it is given and answers with a set status: the tests'
// transport, and the stand-in where no mail program was installed (it answers -1 there).
class RecordingMailTransport : public IMailTransport {
public:
    explicit RecordingMailTransport(int status = 1) : status(status) {}

    int status;
    std::string clientName;
    std::vector<MailMessage> sent;
    // Whether each attachment's file existed when the message was handed over (tests delete
    // the files afterwards).
    std::vector<std::vector<bool>> attachmentsPresent;

    int Send(const MailMessage& message) override;
    std::string DefaultClientName() override { return clientName; }
};

} // namespace corvane
