#pragma once

#include "support/Services.h"

#include <QString>

namespace corvane {

// Settings through QSettings under the organisation "Corvane". Key paths keep their registry
// form ("Software\Corvane\DefaultOptions"): on Windows the values land under those same
// registry keys, elsewhere in the user's configuration folder with the same names.
class QtSettingsStore : public ISettingsStore {
public:
    bool KeyExists(const std::string& key) override;
    void CreateKey(const std::string& key) override;
    std::string GetValue(const std::string& key, const std::string& name) override;
    bool SetValue(const std::string& key, const std::string& name, const std::string& value) override;
    void DeleteValue(const std::string& key, const std::string& name) override;

    // The group inside the organisation's settings that a registry key path stands for.
    static QString GroupOf(const std::string& key);
};

} // namespace corvane
