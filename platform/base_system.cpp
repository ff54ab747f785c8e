// SPDX-License-Identifier: MIT
#include <dlfcn.h>

#include <QFileInfo>
#include <cstdlib>

#include "platform/base_settings.h"

namespace {

// Any function of this library: dladdr on it names the loaded library file.
void libraryAnchor() {}

// The sample data installed beside the library (<lib>/../share/devctrl/data),
// or an empty string when the library does not sit in an installed tree.
QString installedDataDir() {
    Dl_info info{};
    if (!dladdr(reinterpret_cast<void*>(&libraryAnchor), &info) || !info.dli_fname)
        return {};
    QFileInfo library(QString::fromLocal8Bit(info.dli_fname));
    // Both the path the library was loaded by and its resolved location count,
    // so a library reached through a symbolic link still finds its tree.
    for (const QString& libDir :
         {library.absolutePath(), QFileInfo(library.canonicalFilePath()).absolutePath()}) {
        if (libDir.isEmpty())
            continue;
        QString candidate = QDir::cleanPath(libDir + QStringLiteral("/" DEVCTRL_LIB_TO_DATA));
        if (QFileInfo(candidate).isDir())
            return candidate;
    }
    return {};
}

QString& dataPathFromCode() {
    static QString directory;
    return directory;
}

}  // namespace

QString BaseSystem::getCacheDir() {
    // Set but empty counts as unset, as for the data directory.
    auto fromEnv = [](const char* name) {
        const char* value = std::getenv(name);
        return value && *value ? QString::fromLocal8Bit(value) : QString();
    };
    const QString explicitDir = fromEnv("DEVCTRL_CACHE_DIR");
    if (!explicitDir.isEmpty())
        return explicitDir;
    QString base = fromEnv("XDG_CACHE_HOME");
    if (base.isEmpty()) {
        const QString home = fromEnv("HOME");
        if (home.isEmpty())
            return {};
        base = home + QStringLiteral("/.cache");
    }
    return base + QStringLiteral("/devctrl");
}

void BaseSystem::setDataPath(const QString& directory) {
    dataPathFromCode() = directory;
}

QDir BaseSystem::getDataPath() {
    if (!dataPathFromCode().isEmpty())
        return QDir(dataPathFromCode());
    // An empty DEVCTRL_DATA_DIR counts as unset rather than as the current
    // directory, which is never what a user means.
    const char* fromEnv = std::getenv("DEVCTRL_DATA_DIR");
    if (fromEnv && *fromEnv)
        return QDir(QString::fromLocal8Bit(fromEnv));
    QString installed = installedDataDir();
    if (!installed.isEmpty())
        return QDir(installed);
    return QDir(QStringLiteral(DEVCTRL_SOURCE_DATA_DIR));
}
