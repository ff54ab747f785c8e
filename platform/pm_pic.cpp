// SPDX-License-Identifier: MIT
// Selection objects over the part-model database. They hold plain pointers
// into PM_DATABASE::_database: a selection is valid only while that database
// lives, so these objects are meant to be short-lived (made, asked, dropped)
// and must not be kept across a rebuild of the database.

#include "platform/pm_pic.h"

#include <sys/stat.h>

#include <vector>

#include "platform/data_file.h"

namespace {

template <typename Record>
PM_NAME_DARRAY namesOf(const std::vector<Record>& records) {
    std::vector<UT_STROBJ> names;
    names.reserve(records.size());
    for (const Record& record : records)
        names.emplace_back(record.name);
    return PM_NAME_DARRAY(std::move(names));
}

}  // namespace

// ---- PM_SPEC ----------------------------------------------------------------

bool PM_SPEC::set_pm(const char* name, unsigned char flags) {
    return setPmInternal(name, flags);
}

bool PM_SPEC::setPmInternal(const char* name, unsigned int /*flags*/) {
    m_pm = nullptr;
    m_device = nullptr;
    m_package = nullptr;
    m_speed = nullptr;
    if (!name)
        return false;
    const PM_DATABASE* database = PM_DATABASE::buildMe();
    // PM codes are exact; family names are the fallback, matched without case.
    m_pm = database->findPm(name);
    if (!m_pm)
        m_pm = database->findFamily(name);
    return m_pm != nullptr;
}

const char* PM_SPEC::getPmName(unsigned char /*flags*/) const {
    return m_pm ? m_pm->pm.c_str() : nullptr;
}

const PM_RECORD* PM_SPEC::getPm(unsigned char /*flags*/) const {
    return m_pm;
}

// ---- PM_DEVPIC ----------------------------------------------------------------

PM_NAME_DARRAY PM_DEVPIC::makeInstalledArchList(unsigned int /*flags*/) const {
    std::vector<UT_STROBJ> names;
    for (std::string& family : PM_DATABASE::buildMe()->installedFamilies())
        names.emplace_back(std::move(family));
    return PM_NAME_DARRAY(std::move(names));
}

PM_NAME_DARRAY PM_DEVPIC::makeDeviceList(unsigned int /*flags*/) const {
    return m_pm ? namesOf(m_pm->devices) : PM_NAME_DARRAY();
}

PM_NAME_DARRAY PM_DEVPIC::makePkgList(unsigned int /*flags*/) const {
    return m_device ? namesOf(m_device->packages) : PM_NAME_DARRAY();
}

bool PM_DEVPIC::set_device(const char* device) {
    m_device = nullptr;
    m_package = nullptr;
    m_speed = nullptr;
    if (m_pm && device)
        m_device = m_pm->findDevice(device);
    return m_device != nullptr;
}

bool PM_DEVPIC::set_package(const char* package) {
    m_package = nullptr;
    m_speed = nullptr;
    if (m_device && package)
        m_package = m_device->findPackage(package);
    return m_package != nullptr;
}

// ---- PM_PIC -------------------------------------------------------------------

PM_PIC::PM_PIC(const char* family, const char* device, const char* package, unsigned char flags) {
    // Each level is chosen only when the level above it was found.
    if (family && set_pm(family, flags) && device && set_device(device) && package)
        set_package(package);
}

PM_NAME_DARRAY PM_PIC::makeSpdList(unsigned int /*flags*/) const {
    if (!m_package)
        return PM_NAME_DARRAY();
    std::vector<UT_STROBJ> grades;
    grades.reserve(m_package->speeds.size());
    for (const PM_SPEED_RECORD& speed : m_package->speeds)
        grades.emplace_back(speed.grade);
    return PM_NAME_DARRAY(std::move(grades));
}

bool PM_PIC::set_speed(const char* speed, unsigned char /*flags*/) {
    m_speed = nullptr;
    if (!m_package || !speed)
        return false;
    for (const PM_SPEED_RECORD& record : m_package->speeds) {
        if (record.grade == speed) {
            m_speed = &record;
            return true;
        }
    }
    return false;
}

const char* PM_PIC::getDataFilePath(int /*kind*/, const char* extension, int, int) {
    if (!m_pm || !extension)
        return nullptr;
    std::string path = m_pm->directory + "/" + m_pm->pm + extension;
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0)
        return nullptr;
    if (!S_ISREG(info.st_mode)) {
        // There, but no file to read: said once, and the family does without.
        tarn::vyxpn::platform::DataFile(path).openOrTrace();
        return nullptr;
    }
    m_dataFilePath = std::move(path);
    return m_dataFilePath.c_str();
}
