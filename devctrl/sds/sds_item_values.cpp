#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

std::string TarnSDSFile::_internalGetPartItemValue(bool& found, const std::string& item,
                                                   const std::string& part,
                                                   std::string defaultValue) const {
    found = false;
    std::string value;
    if (const std::string* cell = m_partSection.cell(part, m_partSection.columnOf(item))) {
        value = *cell;
        found = true;
    }
    return value.empty() ? defaultValue : value;
}

std::string TarnSDSFile::internalGetPartItemValue(const std::string& item, const std::string& part,
                                                  std::string defaultValue) const {
    bool found = false;
    return _internalGetPartItemValue(found, item, part, std::move(defaultValue));
}

std::string TarnSDSFile::_internalGetDevPkgItemValue(bool& found, const std::string& item,
                                                     const std::string& device,
                                                     const std::string& package,
                                                     std::string defaultValue) const {
    found = false;
    std::string value;
    // The finest table that defines the item owns it outright: a missing row
    // there means "no value", not "ask the coarser table".
    const TarnSDSFileSection* table = nullptr;
    std::string key;
    int column = m_packageSection.columnOf(item);
    if (column >= 0) {
        table = &m_packageSection;
        key = device + "_" + package;
    } else if ((column = m_deviceSection.columnOf(item)) >= 0) {
        table = &m_deviceSection;
        key = device;
    } else if ((column = m_pmSection.columnOf(item)) >= 0) {
        table = &m_pmSection;
        key = m_pm;
    }
    if (table) {
        if (const std::string* cell = table->cell(key, column)) {
            value = *cell;
            found = true;
        }
    }
    return value.empty() ? defaultValue : value;
}

std::string TarnSDSFile::internalGetDevPkgItemValue(const std::string& item,
                                                    const std::string& device,
                                                    const std::string& package,
                                                    std::string defaultValue) const {
    bool found = false;
    return _internalGetDevPkgItemValue(found, item, device, package, std::move(defaultValue));
}

std::string TarnSDSFile::getItemValue(const std::string& item, const std::string& part,
                                      std::string defaultValue) const {
    bool found = false;
    std::string value = _internalGetPartItemValue(found, item, part, "");
    if (found)
        return value.empty() ? defaultValue : value;

    std::string device, package, speed, condition;
    if (getNameByPart(part, device, package, speed, condition)) {
        value = _internalGetDevPkgItemValue(found, item, device, package, "");
        if (found)
            return value.empty() ? defaultValue : value;
    }

    if (const std::string* cell = m_genericDevices.cell(part, m_genericDevices.columnOf(item)))
        value = *cell;
    return value.empty() ? defaultValue : value;
}

}  // namespace tarn::vyxpn
