#pragma once

// Error reports by mail to the support mailbox: the critical error dialog's e-mail button (the
// report text, the error log and, when asked, a copy of the open project) and the Help menu's
// error report (a picture of the desktop as JPEG, the log and the project copy). The picture and
// the project copy come from the caller, so the core knows neither the screen nor the globals.

#include "model/DateTime.h"

#include <functional>
#include <string>

namespace corvane {

class clsImageDIB;

// Takes a picture of the desktop; false when there is none to take.
using DesktopCapture = std::function<bool(clsImageDIB& picture)>;
// Saves a copy of the open project to the path; false when it was not written. Empty when there
// is no project to send.
using ProjectCopy = std::function<bool(const std::string& path)>;

// "Build code: " with the version as major "0", minor "00", revision "0000", and "." and the
// build tag when there is one.
std::string BuildCodeText();
// "Date: " as "dd mmm yyyy hh:mm".
std::string EmailDateText(const DateTime& now);

// The critical error dialog's e-mail: the report, the log when it exists and the project copy
// when `projectCopy` is given and wrote its file. On failure: "Cannot prepare the error
// notification email. ..." Returns the status of the mail client.
int SendCriticalErrorEmail(const std::string& report, const ProjectCopy& projectCopy);

// The Help menu's error report, files stamped "yyyymmdd-hhmm" in the temporary folder: the
// desktop picture as JPEG at quality 100, the project copy (a failed copy is said and left
// out), the log. Returns the status of the mail client; 1 and 2 are success.
int SendErrorReport(const DesktopCapture& capture, const ProjectCopy& projectCopy);

} // namespace corvane
