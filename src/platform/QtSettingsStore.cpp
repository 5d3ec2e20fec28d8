#include "platform/QtSettingsStore.h"

#include <QSettings>

#include <memory>

namespace corvane {
namespace {

constexpr const char* kOrganisation = "Corvane";

// Where the values of a key path live: QSettings of an organisation and an application (none
// for the station's own store), and the group inside them.
struct Location {
    QString organisation;
    QString application;
    QString group;
};

Location LocationOf(const std::string& key) {
    const QStringList parts = QString::fromStdString(key).replace('\\', '/').split('/', Qt::SkipEmptyParts);
    // "Software\<Organisation>\<Application>\..." of another organisation is that program's own
    // settings: the registry key itself on Windows, and elsewhere the file or list QSettings
    // keeps for them. The earlier location of this station's settings is read this way.
    if (parts.size() >= 3 && parts[0].compare(QStringLiteral("Software"), Qt::CaseInsensitive) == 0 &&
        parts[1].compare(QLatin1String(kOrganisation), Qt::CaseInsensitive) != 0) {
        return {parts[1], parts[2], parts.mid(3).join('/')};
    }
    return {QLatin1String(kOrganisation), QString(), QtSettingsStore::GroupOf(key)};
}

std::unique_ptr<QSettings> Open(const Location& location) {
    auto settings = std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                                location.organisation, location.application);
    if (!location.application.isEmpty()) {
        // Another program's key alone, not its organisation's defaults.
        settings->setFallbacksEnabled(false);
    }
    return settings;
}

} // namespace

QString QtSettingsStore::GroupOf(const std::string& key) {
    QString group = QString::fromStdString(key).replace('\\', '/');
    while (group.endsWith('/')) {
        group.chop(1);
    }
    // "Software\Corvane" is the organisation's own root: QSettings adds it on Windows.
    const QString root = QStringLiteral("Software/Corvane");
    if (group.compare(root, Qt::CaseInsensitive) == 0) {
        return {};
    }
    if (group.startsWith(root + '/', Qt::CaseInsensitive)) {
        return group.mid(root.size() + 1);
    }
    return group;
}

bool QtSettingsStore::KeyExists(const std::string& key) {
    const Location location = LocationOf(key);
    const auto settings = Open(location);
    const QStringList parts = location.group.split('/', Qt::SkipEmptyParts);
    if (parts.isEmpty()) {
        return location.application.isEmpty() || !settings->allKeys().isEmpty();
    }
    for (int i = 0; i + 1 < parts.size(); ++i) {
        settings->beginGroup(parts[i]);
    }
    // QSettings keeps no empty groups: a created key holds a marker value until it has others.
    return settings->childGroups().contains(parts.last(), Qt::CaseInsensitive);
}

void QtSettingsStore::CreateKey(const std::string& key) {
    const Location location = LocationOf(key);
    if (!location.group.isEmpty() && !KeyExists(key)) {
        Open(location)->setValue(location.group + QStringLiteral("/.created"), QStringLiteral("1"));
    }
}

std::string QtSettingsStore::GetValue(const std::string& key, const std::string& name) {
    const Location location = LocationOf(key);
    const auto settings = Open(location);
    settings->beginGroup(location.group);
    return settings->value(QString::fromStdString(name)).toString().toStdString();
}

bool QtSettingsStore::SetValue(const std::string& key, const std::string& name, const std::string& value) {
    const Location location = LocationOf(key);
    const auto settings = Open(location);
    if (!settings->isWritable()) {
        return false;
    }
    settings->beginGroup(location.group);
    settings->setValue(QString::fromStdString(name), QString::fromStdString(value));
    settings->endGroup();
    settings->sync();
    return settings->status() == QSettings::NoError;
}

void QtSettingsStore::DeleteValue(const std::string& key, const std::string& name) {
    const Location location = LocationOf(key);
    const auto settings = Open(location);
    settings->beginGroup(location.group);
    settings->remove(QString::fromStdString(name));
}

} // namespace corvane
