#pragma once

#include "support/Services.h"

#include <string>

namespace corvane {

// An environment whose every answer is set by hand: tests give it a temporary folder tree,
// a user and a machine name, and a decimal separator.
class FixedEnvironment : public IEnvironment {
public:
    std::string userName;
    std::string computerName;
    std::string appDataFolder;
    std::string desktopFolder;
    std::string tempFolder;
    std::string programFilePath;
    char decimalSeparator = '.';

    std::string UserName() override { return userName; }
    std::string ComputerName() override { return computerName; }
    std::string AppDataFolder() override { return appDataFolder; }
    std::string DesktopFolder() override { return desktopFolder; }
    std::string TempFolder() override { return tempFolder; }
    std::string ProgramFilePath() override { return programFilePath; }
    char DecimalSeparator() override { return decimalSeparator; }
};

} // namespace corvane
