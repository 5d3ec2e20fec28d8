#include "files/modLockFile.h"

#include "files/FileAccess.h"
#include "support/Services.h"

#include <filesystem>
#include <vector>

namespace corvane {

namespace fs = std::filesystem;

namespace {

const char* const kDefaultUser = "User";
const char* const kDefaultComputer = "MyPC";

std::string TwoDigits(int value) {
    std::string text = std::to_string(value);
    return text.size() < 2 ? "0" + text : text;
}

// Fixed form, whatever the locale: a lock is read by other stations.
std::string LockDate(const DateTime& now) {
    return std::to_string(now.year) + "-" + TwoDigits(now.month) + "-" + TwoDigits(now.day) + " " +
           TwoDigits(now.hour) + ":" + TwoDigits(now.minute) + ":" + TwoDigits(now.second);
}

std::vector<std::string> SplitLines(const std::string& bytes) {
    std::vector<std::string> lines;
    std::string line;
    for (char c : bytes) {
        if (c == '\n') {
            lines.push_back(line);
            line.clear();
        } else if (c != '\r') {
            line += c;
        }
    }
    if (!line.empty())
        lines.push_back(line);
    return lines;
}

// The text after the first "=", or the whole line when there is none.
std::string ValueOf(const std::string& line) {
    const auto equals = line.find('=');
    return equals == std::string::npos ? line : line.substr(equals + 1);
}

} // namespace

std::string LockFilePath(const std::string& projectPath) {
    return projectPath + ".lck";
}

int WriteLockFile(const std::string& projectPath) {
    try {
        if (projectPath.empty() || !RemoveLockFile(projectPath))
            return 0;
        std::string user = Environment().UserName();
        std::string computer = Environment().ComputerName();
        if (user.empty())
            user = kDefaultUser;
        if (computer.empty())
            computer = kDefaultComputer;
        const std::string text = "UserName=" + user + "\r\nComputerName=" + computer +
                                 "\r\nDate=" + LockDate(Clock().Now()) + "\r\n";
        return WriteFileAtomically(LockFilePath(projectPath), text) ? 1 : 0;
    } catch (...) {
        return 0;
    }
}

int RemoveLockFile(const std::string& projectPath) {
    try {
        if (projectPath.empty())
            return 1;
        std::error_code error;
        const fs::path lock = LockFilePath(projectPath);
        if (!fs::exists(lock, error))
            return error ? 0 : 1;
        fs::remove(lock, error);
        return error ? 0 : 1;
    } catch (...) {
        return 0;
    }
}

int ReadLockFile(const std::string& projectPath, std::string& user, std::string& computer) {
    user = kDefaultUser;
    computer = kDefaultComputer;
    try {
        std::string bytes;
        // A lock is three short lines; anything much larger is not ours and is not read whole.
        std::error_code error;
        const fs::path lock = LockFilePath(projectPath);
        if (projectPath.empty() || fs::file_size(lock, error) > 64 * 1024 || error ||
            !ReadFileBytes(lock, bytes))
            return 0;
        const auto lines = SplitLines(bytes);
        if (lines.size() < 2)
            return 0;
        user = ValueOf(lines[0]);
        computer = ValueOf(lines[1]);
        return 1;
    } catch (...) {
        return 0;
    }
}

bool IsFileLocked(const std::string& projectPath, std::string& user, std::string& computer) {
    try {
        std::error_code error;
        if (projectPath.empty() || !fs::exists(LockFilePath(projectPath), error) || error)
            return false;
        ReadLockFile(projectPath, user, computer);
        return true;
    } catch (...) {
        return false;
    }
}

} // namespace corvane
