// SPDX-License-Identifier: MIT
#include "devctrl/sds/sds_file.h"
#include "devctrl/sds/part_index.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

#include "devctrl/util/quote.h"
#include "platform/base_settings.h"
#include "platform/pm_pic.h"
#include "platform/ut_trace.h"

namespace tarn::vyxpn {

TarnSDSFile::~TarnSDSFile() {
    resetAll();
}

void TarnSDSFile::reset() {
    invalidateIndexes();
    m_pkgAlias.clear();
    m_resourceItems.clear();
    m_resourceLabels.clear();
    m_partExceptions.clear();
    m_deviceExceptions.clear();
    m_packageExceptions.clear();
    m_pmSection.clear();
    m_deviceSection.clear();
    m_packageSection.clear();
    m_partSection.clear();
    m_ascTypes.clear();
    m_ascSection.clear();
    m_ascResourceItems.clear();
    m_defaultASC.clear();
}

void TarnSDSFile::resetAll() {
    reset();
    m_genericDevices.clear();
    m_deviceInfo.clear();
}

namespace {

// The directory of the family's part data file, ending in a separator. Either
// separator counts as already there, so paths of both conventions pass.
std::string partDataDirectory(const std::string& partDataPath) {
    QString directory =
        QFileInfo(QFile::decodeName(partDataPath.c_str())).absoluteDir().absolutePath();
    if (!directory.endsWith(QChar('/'), Qt::CaseSensitive) &&
        !directory.endsWith(QChar('\\'), Qt::CaseSensitive))
        directory.append(QChar('/'));
    return QFile::encodeName(directory).toStdString();
}

}  // namespace

std::string TarnSDSFile::deviceTablePath() const {
    PM_PIC_HDL family(m_pm.c_str(), nullptr, nullptr);
    std::string path = family.valid() ? family.directory() + "/device.acd" : std::string();
    family.kill();
    return path;
}

std::string TarnSDSFile::sharedTablePath() {
    return QFile::encodeName(BaseSystem::getDataPath().filePath(QStringLiteral("device.acd")))
        .toStdString();
}

DataError TarnSDSFile::dataError(const std::string& key, const std::string& row,
                                 const std::string& problem) const {
    return DataError(m_pm, deviceTablePath(), key, row, problem);
}

DataError TarnSDSFile::itemError(ItemOrigin origin, const std::string& device,
                                 const std::string& package, const std::string& problem) const {
    switch (origin) {
        case ItemOrigin::Package:
            return dataError("PACKAGE_DATAS", device + ", " + package, problem);
        case ItemOrigin::Device:
            return dataError("DEVICE_DATAS", device, problem);
        default:
            return dataError("PM_DATAS", "", problem);
    }
}

bool TarnSDSFile::init() {
    resetAll();
    if (!loadDeviceAcd()) {
        diagTrace(("Failed to load device.acd of " + util::escapedForMessage(m_pm)).c_str(),
                  nullptr);
        return false;
    }

    std::string partDataPath;
    {
        PM_PIC pic(nullptr, nullptr, nullptr, 0);
        pic.set_pm(m_pm.c_str(), 0);
        if (const char* path = pic.getDataFilePath(1, ".pwd", 0, 1))
            partDataPath = path;
    }
    if (!partDataPath.empty()) {
        std::string directory = partDataDirectory(partDataPath);
        if (loadPWD_Bin(m_pm, directory.c_str(), m_resourceItems) != 0)
            diagTrace(("Failed to load pdb file of " + util::escapedForMessage(m_pm)).c_str(),
                      nullptr);
    }

    buildDatabase();
    return true;
}

}  // namespace tarn::vyxpn
