#include "reports/modErrorReport.h"

#include "files/FileAccess.h"
#include "model/AppVersion.h"
#include "model/Globals.h"
#include "reports/clsImageDIB.h"
#include "support/Services.h"
#include "support/modErrorHandler.h"
#include "support/modNVEmailClient.h"
#include "support/modNVSystemUtilities.h"

#include <array>
#include <filesystem>
#include <string_view>
#include <vector>

namespace corvane {
namespace {

constexpr const char* kCrLf = "\r\n";

std::string Pad(int value, int width) {
    std::string text = std::to_string(value);
    return text.size() < static_cast<std::size_t>(width)
               ? std::string(static_cast<std::size_t>(width) - text.size(), '0') + text
               : text;
}

bool FileThere(const std::string& path) {
    std::error_code ec;
    return std::filesystem::is_regular_file(path, ec);
}

void AttachIfThere(std::vector<MailAttachment>& attachments, const std::string& path) {
    if (FileThere(path)) {
        attachments.push_back({FileNameOf(path), path});
    }
}

int Send(const std::string& body, std::vector<MailAttachment> attachments) {
    const EmailSettings settings = LoadEmailSettings(kEmailOptionsKey);
    const int status =
        SendEmailMessage(settings.messaging, SupportEmailAddress(), gAppTitle + " Error Report", body,
                         std::move(attachments), settings.resolveName);
    if (status != 1 && status != 2) {
        Prompts().MessageBox(
            "Cannot prepare the error notification email. Please copy the information and send "
            "to Norvelle by separate email.",
            MsgBox::OKOnly | MsgBox::Critical, gAppTitle);
    }
    return status;
}

std::string Stamp(const DateTime& now) {
    return Pad(now.year, 4) + Pad(now.month, 2) + Pad(now.day, 2) + "-" + Pad(now.hour, 2) +
           Pad(now.minute, 2);
}

} // namespace

std::string BuildCodeText() {
    std::string text = "Build code: " + std::to_string(kVersionMajor) + "." + Pad(kVersionMinor, 2) + "." +
                       Pad(kVersionRevision, 4);
    if (!gBuildTag.empty()) {
        text += "." + gBuildTag;
    }
    return text;
}

std::string EmailDateText(const DateTime& now) {
    static constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const std::string month = now.month >= 1 && now.month <= 12 ? kMonths[now.month - 1] : "???";
    return "Date: " + Pad(now.day, 2) + " " + month + " " + Pad(now.year, 4) + " " + Pad(now.hour, 2) + ":" +
           Pad(now.minute, 2);
}

int SendCriticalErrorEmail(const std::string& report, const ProjectCopy& projectCopy) {
    const std::string body =
        report + kCrLf + kCrLf + BuildCodeText() + kCrLf + kCrLf + EmailDateText(Clock().Now());
    std::vector<MailAttachment> attachments;
    AttachIfThere(attachments, GetErrorLogPath());
    if (projectCopy) {
        const std::string path = AddFolderSeparator(GetTempFolder()) + Stamp(Clock().Now()) + ".cvpj";
        if (projectCopy(path)) {
            AttachIfThere(attachments, path);
        }
    }
    return Send(body, std::move(attachments));
}

int SendErrorReport(const DesktopCapture& capture, const ProjectCopy& projectCopy) {
    const std::string stamp = Stamp(Clock().Now());
    const std::string folder = AddFolderSeparator(GetTempFolder());
    const std::string picturePath = folder + gAppExeName + "-" + stamp + ".jpg";
    clsImageDIB picture;
    if (capture && capture(picture) && picture.Width() > 0) {
        try {
            const std::vector<std::uint8_t> jpeg = picture.SaveImageToJPEGByteArray(100);
            WriteFileAtomically(picturePath,
                                std::string_view(reinterpret_cast<const char*>(jpeg.data()), jpeg.size()));
        } catch (...) {
            // Without the picture the report still goes, with the log and the project.
        }
    }
    const std::string projectPath = folder + stamp + ".cvpj";
    if (projectCopy && !projectCopy(projectPath)) {
        Prompts().MessageBox("An error occured writing the file. It can not be automatically exported and "
                             "attached to the email.",
                             MsgBox::OKOnly | MsgBox::Exclamation, gAppTitle);
    }
    const std::string body =
        gAppTitle + kCrLf + kCrLf + BuildCodeText() + kCrLf + kCrLf + EmailDateText(Clock().Now());
    std::vector<MailAttachment> attachments;
    AttachIfThere(attachments, GetErrorLogPath());
    AttachIfThere(attachments, picturePath);
    if (projectCopy) {
        AttachIfThere(attachments, projectPath);
    }
    return Send(body, std::move(attachments));
}

} // namespace corvane
