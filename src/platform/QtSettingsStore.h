#pragma once

#include "support/Services.h"

#include <QString>

namespace corvane {

// Settings through QSettings under the organisation "Corvane". Key paths keep their registry
// form ("Software\Corvane\DefaultOptions"): on Windows the values land in the registry under the
// organisation, elsewhere in the user's configuration folder with the same names. A path
// "Software\<Organisation>\<Application>\..." of another organisation names that program's
// settings where QSettings keeps them: on Windows its registry key, elsewhere the settings of
// that organisation and application. The station's earlier location, "Software\Norvelle\Corvane",
// is read from there.
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
