#pragma once

#include "support/Services.h"

#include <map>
#include <string>

namespace corvane {

// A settings store held in memory: the stand-in for tests and for the command-line program,
// which must not change a station's settings. Key paths compare without regard to case, as
// registry keys do; "\" and "/" separate the levels alike.
class MemorySettingsStore : public ISettingsStore {
public:
    bool KeyExists(const std::string& key) override;
    void CreateKey(const std::string& key) override;
    std::string GetValue(const std::string& key, const std::string& name) override;
    bool SetValue(const std::string& key, const std::string& name, const std::string& value) override;
    void DeleteValue(const std::string& key, const std::string& name) override;

    using Contents = std::map<std::string, std::map<std::string, std::string>>;
    // Every key with its values, to compare the store before and after.
    const Contents& Snapshot() const { return keys_; }

    // When set, every write fails, as a locked-down registry would.
    void SetReadOnly(bool readOnly) { readOnly_ = readOnly; }

private:
    static std::string NormalKey(const std::string& key);
    Contents keys_;
    bool readOnly_ = false;
};

} // namespace corvane
