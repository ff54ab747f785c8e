// SPDX-License-Identifier: MIT
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

ItemSource TarnSDSFile::locateDevPkgItem(const std::string& item, const std::string& device,
                                         const std::string& package) const {
    // The finest table that defines the item owns it outright: a missing row
    // there means "no value", not "ask the coarser table".
    int column = m_packageSection.columnOf(item);
    if (column >= 0)
        return {ItemOrigin::Package,
                m_packageSection.cell(devicePackageKey(device, package), column)};
    if ((column = m_deviceSection.columnOf(item)) >= 0)
        return {ItemOrigin::Device, m_deviceSection.cell(device, column)};
    if ((column = m_pmSection.columnOf(item)) >= 0)
        return {ItemOrigin::Family, m_pmSection.cell(m_pm, column)};
    return {};
}

std::string TarnSDSFile::_internalGetDevPkgItemValue(bool& found, const std::string& item,
                                                     const std::string& device,
                                                     const std::string& package,
                                                     std::string defaultValue) const {
    const ItemSource source = locateDevPkgItem(item, device, package);
    found = source.cell != nullptr;
    return found && !source.cell->empty() ? *source.cell : defaultValue;
}

std::string TarnSDSFile::internalGetDevPkgItemValue(const std::string& item,
                                                    const std::string& device,
                                                    const std::string& package,
                                                    std::string defaultValue) const {
    bool found = false;
    return _internalGetDevPkgItemValue(found, item, device, package, std::move(defaultValue));
}

ItemSource TarnSDSFile::locateItem(const std::string& item, const std::string& part) const {
    if (const std::string* cell = m_partSection.cell(part, m_partSection.columnOf(item)))
        return {ItemOrigin::Part, cell};

    std::string device, package, speed, condition;
    if (getNameByPart(part, device, package, speed, condition)) {
        ItemSource source = locateDevPkgItem(item, device, package);
        if (source.cell)
            return source;
    }

    if (const std::string* cell = m_genericDevices.cell(part, m_genericDevices.columnOf(item)))
        return {ItemOrigin::PartTable, cell};
    return {};
}

std::string TarnSDSFile::getItemValue(const std::string& item, const std::string& part,
                                      std::string defaultValue) const {
    const ItemSource source = locateItem(item, part);
    return source.cell && !source.cell->empty() ? *source.cell : defaultValue;
}

}  // namespace tarn::vyxpn
