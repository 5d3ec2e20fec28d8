#include "support/modNVEmailClient.h"

#include "common/ServicesFixture.h"
#include "model/Globals.h"
#include "support/modNVSystemUtilities.h"

#include <fstream>

namespace corvane {
namespace {

class modNVEmailClientTest : public test::ServicesTest {
protected:
    std::string Attachment(const std::string& name) {
        const std::string path = temp->File(name);
        std::ofstream(path) << "data";
        return path;
    }
};

TEST_F(modNVEmailClientTest, BlankFieldsGetTheirStandIns) {
    const struct {
        std::string recipient, subject, text;
        std::string sentRecipient, sentSubject, sentText;
    } cases[] = {
        {"  ", "", "", kBlankRecipientAddress, "Emailing from: Corvane", " "},
        {" a@b.c ", "  ", "body", "a@b.c", "Emailing from: Corvane", "body"},
        {"a@b.c", "Report", "\r\n", "a@b.c", "Report", "\r\n"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SendEmailMessage(kMessagingDirect, c.recipient, c.subject, c.text, {}, false), kEmailSent);
        const MailMessage& sent = mail.sent.back();
        EXPECT_EQ(sent.recipient, c.sentRecipient);
        EXPECT_EQ(sent.subject, c.sentSubject);
        EXPECT_EQ(sent.text, c.sentText);
    }
}

// An attachment that is not there stops the hand-over with -2: route 0 says why, the other
// routes report through the status only. A blank name is the file's own.
TEST_F(modNVEmailClientTest, AttachmentsMustNameExistingFiles) {
    const std::string there = Attachment("log.txt");
    const struct {
        int messaging;
        std::string path;
        const char* message;
    } cases[] = {
        {kMessagingControl, temp->File("gone.jpg"),
         "Email message attachment file not found at specified path."},
        {kMessagingControl, " ", "Email message attachment file name unspecified."},
        {kMessagingCDO, temp->File("gone.jpg"), nullptr},
    };
    for (const auto& c : cases) {
        if (c.message != nullptr) {
            prompts.Expect(Answer::OK, c.message);
        }
        EXPECT_EQ(SendEmailMessage(c.messaging, "a@b.c", "s", "t", {{"", there}, {"x", c.path}}, false),
                  kEmailAttachmentFailed);
    }
    EXPECT_TRUE(mail.sent.empty());
    EXPECT_EQ(SendEmailMessage(kMessagingControl, "a@b.c", "s", "t", {{"", there}}, false), kEmailSent);
    EXPECT_EQ(mail.sent.back().attachments[0].name, "log.txt");
    mail.status = kEmailCancelled;
    EXPECT_EQ(SendEmailMessage(kMessagingControl, "a@b.c", "s", "t", {}, false), kEmailCancelled);
}

TEST_F(modNVEmailClientTest, StoredRoutesKeepTheirWordsAndNotDefinedFallsBackToTheClient) {
    mail.clientName = "Microsoft Outlook";
    EXPECT_EQ(LoadEmailSettings(kEmailOptionsKey), (EmailSettings{kMessagingCDO, false}));
    const struct {
        const char* word;
        const char* resolve;
        EmailSettings read;
    } cases[] = {
        {"MAPIControl", "Yes", {kMessagingControl, true}},
        {"mapidirect", "No", {kMessagingDirect, false}},
        {"NotDefined", "", {kMessagingCDO, false}},
        {"Carrier pigeon", "Yes", {kMessagingCDO, true}},
    };
    for (const auto& c : cases) {
        SetRegistryValue(kEmailOptionsKey, "EmailMessaging", c.word, true);
        SetRegistryValue(kEmailOptionsKey, "EmailResolveName", c.resolve, true);
        EXPECT_EQ(LoadEmailSettings(kEmailOptionsKey), c.read) << c.word;
    }
    SaveEmailSettings(kEmailOptionsKey, {kMessagingDirect, true});
    EXPECT_EQ(GetRegistryValue(kEmailOptionsKey, "EmailMessaging"), "MAPIDirect");
    EXPECT_EQ(GetRegistryValue(kEmailOptionsKey, "EmailResolveName"), "Yes");
    mail.clientName = "Outlook Express";
    EXPECT_EQ(SendEmailMessage(kMessagingFromClient, "a@b.c", "s", "t", {}, false), kEmailSent);
    EXPECT_EQ(mail.sent.back().messaging, kMessagingControl);
    EXPECT_TRUE(mail.sent.back().resolveName);
}

TEST_F(modNVEmailClientTest, AFailedCDOTestOffersDirectOnce) {
    mail.clientName = "Microsoft Outlook";
    mail.status = kEmailFailed;
    EmailSettings settings;
    prompts.Expect(Answer::Yes, "Note: Insure CDO.DLL system file is installed for MAPI/CDO option.");
    prompts.Expect(Answer::Yes,
                   "MAPI/Direct is an alternative to MAPI/CDO, would you like to test MAPI/Direct?.");
    prompts.Expect(Answer::OK, "The email test appears to have failed.");
    EXPECT_EQ(RunEmailTestPrompt(settings), kEmailFailed);
    EXPECT_EQ(settings, (EmailSettings{kMessagingDirect, false}));
    ASSERT_EQ(mail.sent.size(), 2u);
    EXPECT_EQ(mail.sent[0].messaging, kMessagingCDO);
    EXPECT_EQ(mail.sent[1].messaging, kMessagingDirect);
    EXPECT_EQ(mail.sent[1].subject, "Email Test");
    EXPECT_EQ(mail.attachmentsPresent[1], std::vector<bool>{true});

    mail.status = kEmailSent;
    prompts.Expect(Answer::OK, "Was the test successful?");
    EXPECT_EQ(RunEmailTest(settings), kEmailSent);
    prompts.Expect(Answer::No, "Do you want to set your email options and launch a test email?");
    EXPECT_EQ(RunEmailTestPrompt(settings), 0);
    EXPECT_EQ(mail.sent.size(), 3u);
}

} // namespace
} // namespace corvane
