// SPDX-License-Identifier: MIT
#include "platform/base_settings.h"

#include <QSettings>
#include <QStandardPaths>
#include <cstdlib>

BaseSettings::BaseSettings(const QString& group)
    : m_settings(std::make_unique<QSettings>(fileName(), QSettings::IniFormat)) {
    if (!group.isEmpty())
        m_settings->beginGroup(group);
}

BaseSettings::~BaseSettings() = default;

QString BaseSettings::getDefaultStringSetting(const QString& name) const {
    return m_settings->value(name).toString();
}

void BaseSettings::setDefaultStringSetting(const QString& name, const QString& value) {
    m_settings->setValue(name, value);
    // Written at once: other processes of the tool chain read the same file.
    m_settings->sync();
}

QString BaseSettings::fileName() {
    const char* fromEnv = std::getenv("DEVCTRL_SETTINGS");
    if (fromEnv && *fromEnv)
        return QString::fromLocal8Bit(fromEnv);
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/devctrl/settings.ini");
}
