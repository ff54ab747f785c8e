// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QString>
#include <memory>

#include "export.h"

class QSettings;

// The host's settings store: a QSettings INI file named by DEVCTRL_SETTINGS,
// or devctrl/settings.ini in the user's configuration directory.
class DEVCTRL_API BaseSettings {
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

class DEVCTRL_API BaseSystem {
  public:
    // The data directory, by precedence: the one set with setDataPath; else
    // DEVCTRL_DATA_DIR when set and not empty; else the installed sample data
    // beside the library, or the source tree's data/ for a build that is not
    // installed.
    static QDir getDataPath();
    // Chooses the data directory from code; an empty path goes back to the
    // environment and the sample data. Call it before the first
    // TarnDeviceMngr::getInstance(): a loaded manager keeps what it read, and
    // the next manager (after the current one is deleted) reads the new one.
    // Not for use while another thread loads.
    static void setDataPath(const QString& directory);
    // Where the library may keep files it can always rebuild (indexes of
    // the data directory): DEVCTRL_CACHE_DIR when set and not empty; else
    // devctrl/ in XDG_CACHE_HOME, or in ~/.cache without it. Empty when
    // none of these can be named. The directory need not exist.
    static QString getCacheDir();
};
