#pragma once

#include "support/Services.h"

namespace corvane {

// The user, the machine and the standard folders as Qt and the process environment report them.
class QtEnvironment : public IEnvironment {
public:
    std::string UserName() override;
    std::string ComputerName() override;
    std::string AppDataFolder() override;
    std::string DesktopFolder() override;
    std::string TempFolder() override;
    std::string ProgramFilePath() override;
    char DecimalSeparator() override;
};

} // namespace corvane
