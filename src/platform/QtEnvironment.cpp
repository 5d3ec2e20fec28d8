#include "platform/QtEnvironment.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QStandardPaths>
#include <QSysInfo>

namespace corvane {
namespace {

std::string FolderText(const QString& folder) {
    if (folder.isEmpty()) {
        return {};
    }
    QString native = QDir::cleanPath(folder);
    if (!native.endsWith('/')) {
        native += '/';
    }
    return native.toStdString();
}

// The first of the variables that is set: Windows names first, then the POSIX ones.
QString FirstVariable(std::initializer_list<const char*> names) {
    for (const char* name : names) {
        const QString value = qEnvironmentVariable(name);
        if (!value.isEmpty()) {
            return value;
        }
    }
    return {};
}

char DecimalFromLocale(const QLocale& locale) {
    const QString point = locale.decimalPoint();
    return point.size() == 1 && point.at(0).unicode() < 128 ? static_cast<char>(point.at(0).unicode()) : '.';
}

} // namespace

std::string QtEnvironment::UserName() {
    return FirstVariable({"USERNAME", "USER", "LOGNAME"}).toStdString();
}

std::string QtEnvironment::ComputerName() {
    QString name = FirstVariable({"COMPUTERNAME", "HOSTNAME"});
    if (name.isEmpty()) {
        name = QSysInfo::machineHostName();
    }
    return name.toStdString();
}

std::string QtEnvironment::AppDataFolder() {
    return FolderText(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
}

std::string QtEnvironment::DesktopFolder() {
    return FolderText(QStandardPaths::writableLocation(QStandardPaths::DesktopLocation));
}

std::string QtEnvironment::TempFolder() {
    return FolderText(QDir::tempPath());
}

std::string QtEnvironment::ProgramFilePath() {
    return QCoreApplication::applicationFilePath().toStdString();
}

char QtEnvironment::DecimalSeparator() {
    return DecimalFromLocale(QLocale());
}

} // namespace corvane
