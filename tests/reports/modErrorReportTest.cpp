#include "reports/modErrorReport.h"

#include "common/ServicesFixture.h"
#include "model/Globals.h"
#include "reports/clsImageDIB.h"
#include "support/modErrorHandler.h"
#include "support/modNVEmailClient.h"

#include <fstream>

namespace corvane {
namespace {

class modErrorReportTest : public test::ServicesTest {};

// The Help menu's report hands over the log, the desktop picture as JPEG and the project copy,
// all stamped with the present minute; a project that cannot be copied is said and left out.
TEST_F(modErrorReportTest, TheReportCarriesLogPictureAndProject) {
    gLogFolder = temp->Folder();
    std::ofstream(GetErrorLogPath()) << "log line\r\n";
    const DesktopCapture capture = [](clsImageDIB& picture) { return picture.Create(16, 8); };
    const ProjectCopy copy = [](const std::string& path) {
        return static_cast<bool>(std::ofstream(path) << "p");
    };

    EXPECT_EQ(SendErrorReport(capture, copy), 1);
    ASSERT_EQ(mail.sent.size(), 1u);
    const MailMessage& report = mail.sent[0];
    EXPECT_EQ(report.recipient, kDefaultSupportAddress);
    EXPECT_EQ(report.subject, "Corvane Error Report");
    EXPECT_EQ(report.text.rfind("Corvane\r\n\r\nBuild code: ", 0), 0u);
    EXPECT_NE(report.text.find("\r\n\r\nDate: 22 Nov 2026 09:05"), std::string::npos);
    ASSERT_EQ(report.attachments.size(), 3u);
    EXPECT_EQ(report.attachments[1].name, "corvane-20261122-0905.jpg");
    EXPECT_EQ(report.attachments[2].name, "20261122-0905.cvpj");
    EXPECT_EQ(mail.attachmentsPresent[0], (std::vector<bool>{true, true, true}));
    std::ifstream jpeg(report.attachments[1].path, std::ios::binary);
    EXPECT_EQ(jpeg.get(), 0xFF);
    EXPECT_EQ(jpeg.get(), 0xD8);

    std::filesystem::remove(report.attachments[2].path);
    prompts.Expect(Answer::OK, "It can not be automatically exported and attached to the email.");
    EXPECT_EQ(SendErrorReport([](clsImageDIB&) { return false; }, [](const std::string&) { return false; }),
              1);
    EXPECT_EQ(mail.sent.back().attachments.size(), 2u) << "the log and the earlier picture, no project";
}

} // namespace
} // namespace corvane
