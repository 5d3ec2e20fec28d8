#include "platform/QtSettingsStore.h"

#include <QSettings>

namespace corvane {
namespace {

constexpr const char* kOrganisation = "Corvane";

QSettings Store() {
    return QSettings(QSettings::NativeFormat, QSettings::UserScope, kOrganisation);
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
    QSettings settings = Store();
    const QStringList parts = GroupOf(key).split('/', Qt::SkipEmptyParts);
    if (parts.isEmpty()) {
        return true;
    }
    for (int i = 0; i + 1 < parts.size(); ++i) {
        settings.beginGroup(parts[i]);
    }
    // QSettings keeps no empty groups: a created key holds a marker value until it has others.
    return settings.childGroups().contains(parts.last(), Qt::CaseInsensitive);
}

void QtSettingsStore::CreateKey(const std::string& key) {
    QSettings settings = Store();
    const QString group = GroupOf(key);
    if (!group.isEmpty() && !KeyExists(key)) {
        settings.setValue(group + QStringLiteral("/.created"), QStringLiteral("1"));
    }
}

std::string QtSettingsStore::GetValue(const std::string& key, const std::string& name) {
    QSettings settings = Store();
    settings.beginGroup(GroupOf(key));
    return settings.value(QString::fromStdString(name)).toString().toStdString();
}

bool QtSettingsStore::SetValue(const std::string& key, const std::string& name, const std::string& value) {
    QSettings settings = Store();
    if (!settings.isWritable()) {
        return false;
    }
    settings.beginGroup(GroupOf(key));
    settings.setValue(QString::fromStdString(name), QString::fromStdString(value));
    settings.endGroup();
    settings.sync();
    return settings.status() == QSettings::NoError;
}

void QtSettingsStore::DeleteValue(const std::string& key, const std::string& name) {
    QSettings settings = Store();
    settings.beginGroup(GroupOf(key));
    settings.remove(QString::fromStdString(name));
}

} // namespace corvane
