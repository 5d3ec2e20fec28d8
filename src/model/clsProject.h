#pragma once

#include <string>

namespace corvane {

// File name, folder and full path of a project. Kept as a plain holder: the name of the open
// project lives in gProjectFileName, and nothing else reads this class.
class clsProject {
public:
    const std::string& FileName() const { return fileName_; }
    void SetFileName(const std::string& v) { fileName_ = v; }
    const std::string& FileFolder() const { return fileFolder_; }
    void SetFileFolder(const std::string& v) { fileFolder_ = v; }
    const std::string& FilePath() const { return filePath_; }
    void SetFilePath(const std::string& v) { filePath_ = v; }

private:
    std::string fileName_;
    std::string fileFolder_;
    std::string filePath_;
};

} // namespace corvane
