#include "support/modNVEmailClient.h"

#include "model/Globals.h"
#include "support/Services.h"
#include "support/modNVSystemUtilities.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>

namespace corvane {
namespace {

constexpr const char* kCrLf = "\r\n";
constexpr std::array<const char*, 3> kMessagingWords = {"MAPIControl", "MAPIDirect", "MAPICDO"};
constexpr std::array<const char*, 3> kMessagingLabels = {"MAPI/Control", "MAPI/Direct", "MAPI/CDO"};

std::string Trim(const std::string& text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

bool SameWord(const std::string& a, const std::string& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

// Route 0 tells the user what went wrong with an attachment; the others only report.
int AttachmentFailure(int messaging, const char* text) {
    if (messaging == kMessagingControl) {
        Prompts().MessageBox(text, MsgBox::OKOnly | MsgBox::Critical, "MAPI/Control Error");
    }
    return kEmailAttachmentFailed;
}

} // namespace

EmailClientInfo EmailClientFor(const std::string& clientName) {
    struct Row {
        const char* name;
        int messaging;
        bool resolve;
    };
    static constexpr std::array<Row, 4> kClients = {{{"Microsoft Outlook", kMessagingCDO, false},
                                                     {"Outlook Express", kMessagingControl, true},
                                                     {"Windows Live Mail", kMessagingControl, false},
                                                     {"Mozilla Thunderbird", kMessagingControl, false}}};
    for (const Row& row : kClients) {
        if (clientName == row.name) {
            return {row.name, row.messaging, kMessagingLabels[static_cast<std::size_t>(row.messaging)],
                    row.resolve};
        }
    }
    return {};
}

EmailClientInfo GetDefaultEmailClient() {
    return EmailClientFor(Mail().DefaultClientName());
}

std::string EmailMessagingWord(int messaging) {
    return messaging >= 0 && messaging < static_cast<int>(kMessagingWords.size())
               ? kMessagingWords[static_cast<std::size_t>(messaging)]
               : "NotDefined";
}

EmailSettings LoadEmailSettings(const std::string& key) {
    const EmailClientInfo client = GetDefaultEmailClient();
    EmailSettings settings{client.messaging, client.resolveName};
    const std::string word = GetRegistryValue(key, "EmailMessaging");
    for (std::size_t i = 0; i < kMessagingWords.size(); ++i) {
        if (SameWord(word, kMessagingWords[i])) {
            settings.messaging = static_cast<int>(i);
        }
    }
    const std::string resolve = GetRegistryValue(key, "EmailResolveName");
    if (SameWord(resolve, "Yes")) {
        settings.resolveName = true;
    } else if (SameWord(resolve, "No")) {
        settings.resolveName = false;
    }
    return settings;
}

void SaveEmailSettings(const std::string& key, const EmailSettings& settings) {
    SetRegistryValue(key, "EmailMessaging", EmailMessagingWord(settings.messaging), true);
    SetRegistryValue(key, "EmailResolveName", settings.resolveName ? "Yes" : "No", true);
}

std::vector<std::pair<std::string, int>> EmailMessagingList() {
    std::vector<std::pair<std::string, int>> list;
    for (std::size_t i = 0; i < kMessagingLabels.size(); ++i) {
        list.emplace_back(kMessagingLabels[i], static_cast<int>(i));
    }
    return list;
}

std::string SupportEmailAddress() {
    const std::string address = Trim(GetRegistryValue(kEmailOptionsKey, "SupportAddress"));
    return address.empty() ? kDefaultSupportAddress : address;
}

int SendEmailMessage(int messaging, const std::string& recipient, const std::string& subject,
                     const std::string& text, std::vector<MailAttachment> attachments, bool resolveName) {
    if (messaging == kMessagingFromClient) {
        const EmailClientInfo client = GetDefaultEmailClient();
        messaging = client.messaging;
        resolveName = client.resolveName;
    }
    MailMessage message;
    message.messaging = messaging;
    message.resolveName = resolveName;
    message.recipient = Trim(recipient).empty() ? kBlankRecipientAddress : Trim(recipient);
    message.subject = Trim(subject).empty() ? "Emailing from: " + gAppTitle : subject;
    message.text = text.empty() ? " " : text;
    for (MailAttachment& attachment : attachments) {
        if (Trim(attachment.path).empty()) {
            return AttachmentFailure(messaging, "Email message attachment file name unspecified.");
        }
        std::error_code ec;
        if (!std::filesystem::is_regular_file(attachment.path, ec)) {
            return AttachmentFailure(messaging, "Email message attachment file not found at specified path.");
        }
        if (Trim(attachment.name).empty()) {
            attachment.name = Trim(FileNameOf(attachment.path));
        }
    }
    message.attachments = std::move(attachments);
    const int status = Mail().Send(message);
    return status == kEmailSent || status == kEmailCancelled ? status : kEmailFailed;
}

int RunEmailTestPrompt(EmailSettings& settings) {
    const EmailClientInfo client = GetDefaultEmailClient();
    std::string text = std::string("Email client = ") + client.name + kCrLf +
                       "Email messaging = " + client.label + kCrLf +
                       "Resolve name = " + (client.resolveName ? "Yes" : "No") + kCrLf;
    if (client.messaging == kMessagingCDO) {
        text += std::string(kCrLf) + "(Note: Insure CDO.DLL system file is installed for MAPI/CDO option.)" +
                kCrLf;
    }
    text += std::string(kCrLf) + "Do you want to set your email options and launch a test email?";
    if (Prompts().MessageBox(text, MsgBox::YesNo | MsgBox::Question, "Recommended email settings") !=
        Answer::Yes) {
        return 0;
    }
    settings = {client.messaging, client.resolveName};
    return RunEmailTest(settings);
}

int RunEmailTest(EmailSettings& settings) {
    const std::string path = AddFolderSeparator(GetTempFolder()) + "EmailAttachmentTestFile.txt";
    {
        std::ofstream file(path, std::ios::binary | std::ios::trunc);
        file << "[Email test]" << kCrLf
             << "This is a sample text file to test email attachment functionality." << kCrLf;
    }
    bool retried = false;
    for (;;) {
        const int status = SendEmailMessage(
            settings.messaging, kEmailTestAddress, "Email Test",
            "This email is to test access to an email client. There is no need to send this email.",
            {{"EmailAttachmentTestFile.txt", path}}, settings.resolveName);
        if (status == kEmailSent) {
            Prompts().MessageBox(std::string("Was the test successful?") + kCrLf + kCrLf +
                                     "If not, manually set the Email options and re-test.",
                                 MsgBox::OKOnly | MsgBox::Information, "Email success");
            return status;
        }
        if (settings.messaging == kMessagingCDO && !retried) {
            const int answer = Prompts().MessageBox(
                std::string("The MAPI/CDO email test appears to have failed.") + kCrLf + kCrLf +
                    "MAPI/Direct is an alternative to MAPI/CDO, would you like to test MAPI/Direct?.",
                MsgBox::YesNo | MsgBox::Exclamation, "Email failure");
            if (answer != Answer::Yes) {
                return status;
            }
            settings = {kMessagingDirect, false};
            retried = true;
            continue;
        }
        Prompts().MessageBox(std::string("The email test appears to have failed.") + kCrLf + kCrLf +
                                 "Manually set the Email options and re-test.",
                             MsgBox::OKOnly | MsgBox::Exclamation, "Email failure");
        return status;
    }
}

} // namespace corvane
