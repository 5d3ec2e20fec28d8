#pragma once

// Reading a project file as the window does: the notices of the read shown through the
// installed prompts, where a test's scripted prompts answer and record them.

#include "files/modProjectFile.h"
#include "files/modTesselbyFile.h"

namespace corvane {

inline int ReadProjectShown(const std::string& path) {
    const FileReadResult read = ReadProjectFile(path);
    ShowNotices(read.notices);
    return read.status;
}

inline int ReadTesselbyShown(const std::string& path) {
    const FileReadResult read = ReadTesselbyFile(path);
    ShowNotices(read.notices);
    return read.status;
}

} // namespace corvane
