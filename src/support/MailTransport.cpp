#include "support/MailTransport.h"

#include <filesystem>

namespace corvane {

int RecordingMailTransport::Send(const MailMessage& message) {
    sent.push_back(message);
    std::vector<bool> present;
    for (const MailAttachment& attachment : message.attachments) {
        std::error_code ec;
        present.push_back(std::filesystem::is_regular_file(attachment.path, ec));
    }
    attachmentsPresent.push_back(std::move(present));
    return status;
}

} // namespace corvane
