#pragma once

#include <QDir>
#include <QString>
#include <memory>

class QSettings;

// The host's settings store: a QSettings INI file named by DEVCTRL_SETTINGS,
// or devctrl/settings.ini in the user's configuration directory.
class BaseSettings {
public:
    explicit BaseSettings(const QString& group);
    ~BaseSettings();
    BaseSettings(const BaseSettings&) = delete;
    BaseSettings& operator=(const BaseSettings&) = delete;

    // The value of `name` inside the group, or an empty string when unset.
    QString getDefaultStringSetting(const QString& name) const;
    void setDefaultStringSetting(const QString& name, const QString& value);

    static QString fileName();

private:
    std::unique_ptr<QSettings> m_settings;
};

class BaseSystem {
public:
    // DEVCTRL_DATA_DIR when set; otherwise the installed sample data beside
    // the library, or the source tree's data/ for a build that is not
    // installed.
    static QDir getDataPath();
};
