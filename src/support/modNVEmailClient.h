#pragma once

// E-mail through the user's own mail program: a message with file attachments is composed here
// and handed to the installed mail transport (Mail()), by one of the three messaging routes a
// station can be set to. The routes keep their historic names in the settings so that stored
// settings stay valid; where the system has no MAPI every route is the desktop's hand-over.
//
// Statuses: 1 handed over, -1 failure, -2 an attachment is missing or unnamed, -3 cancelled.

#include "support/MailTransport.h"

#include <string>
#include <utility>
#include <vector>

namespace corvane {

inline constexpr const char* kEmailOptionsKey = "Software\\Corvane\\Email";

inline constexpr int kMessagingFromClient = -1; // take the route from the client table
inline constexpr int kMessagingControl = 0;
inline constexpr int kMessagingDirect = 1;
inline constexpr int kMessagingCDO = 2;

inline constexpr int kEmailSent = 1;
inline constexpr int kEmailFailed = -1;
inline constexpr int kEmailAttachmentFailed = -2;
inline constexpr int kEmailCancelled = -3;

// Where error reports go, and the stand-in recipients a mail program shows for correction.
inline constexpr const char* kDefaultSupportAddress = "support@corvane.example";
inline constexpr const char* kBlankRecipientAddress = "enter.recipient@address.here";
inline constexpr const char* kEmailTestAddress = "email.test@address.here";

// The station's default mail program and the route that suits it.
struct EmailClientInfo {
    std::string name = "NotDefined";
    int messaging = kMessagingControl;
    std::string label = "Not Defined";
    bool resolveName = false;
};

struct EmailSettings {
    int messaging = kMessagingControl;
    bool resolveName = false;

    bool operator==(const EmailSettings&) const = default;
};

// The client table applied to the name the mail transport reports.
EmailClientInfo GetDefaultEmailClient();
EmailClientInfo EmailClientFor(const std::string& clientName);

// "EmailMessaging" and "EmailResolveName" under the key; "NotDefined", an unknown or empty word
// and an empty resolve flag fall back to the client table.
EmailSettings LoadEmailSettings(const std::string& key);
void SaveEmailSettings(const std::string& key, const EmailSettings& settings);
// The settings word of a route ("MAPIControl", "MAPIDirect", "MAPICDO"; "NotDefined" otherwise).
std::string EmailMessagingWord(int messaging);

// The routes as the settings dialog lists them: label and route index.
std::vector<std::pair<std::string, int>> EmailMessagingList();

// The support mailbox of error reports: "SupportAddress" under kEmailOptionsKey, or the default.
std::string SupportEmailAddress();

// Composes the message and hands it over. A blank recipient gets a stand-in address, a blank
// subject becomes "Emailing from: " and the product word, a blank text one space. An
// attachment whose path is blank or names no file stops the hand-over with -2; on route 0 the
// user is told why ("MAPI/Control Error"), the other routes report through the status only.
// A blank attachment name is the path's file name.
[[nodiscard]] int SendEmailMessage(int messaging, const std::string& recipient, const std::string& subject,
                                   const std::string& text, std::vector<MailAttachment> attachments,
                                   bool resolveName);

// Shows the recommended settings for the station's mail program and asks to test them. On Yes
// the recommendation goes into `settings` and the test runs (RunEmailTest). Returns the test's
// status, or 0 when the user said No.
int RunEmailTestPrompt(EmailSettings& settings);
// Sends the test message with a small attachment from the temporary folder and asks the user
// about the result. A failed MAPI/CDO test offers MAPI/Direct once; taking it changes
// `settings`. Returns the status of the last send.
int RunEmailTest(EmailSettings& settings);

} // namespace corvane
