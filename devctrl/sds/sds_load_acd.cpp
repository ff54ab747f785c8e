// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <functional>

#include "devctrl/sds/base_lists.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/string_list.h"
#include "devctrl/util/string_utils.h"
#include "platform/base_settings.h"
#include "platform/pm_devkey.h"
#include "platform/pm_pic.h"

namespace tarn::vyxpn {

namespace {

// The first record of a single-valued key; false when the key has no record.
bool readSingle(const PM_DEVKEY& keys, const char* key, std::string& value) {
    PM_DEVKEY_KEYITER iter(&keys, key, ':', 0, 0);
    if (!iter.record())
        return false;
    value = iter.record();
    return true;
}

// Calls `take` with the fields of every ':'-separated record of `key`, in order.
// Returns the number of records.
int readRecords(const PM_DEVKEY& keys, const char* key,
                const std::function<void(StringList&)>& take) {
    int count = 0;
    StringList fields;
    for (PM_DEVKEY_KEYITER iter(&keys, key, ':', ',', 0); iter.record(); iter.setupNextIAndJ()) {
        fields.clear();
        for (; iter.field(); iter.advanceToNextJ())
            fields.emplace_back(iter.field());
        take(fields);
        ++count;
    }
    return count;
}

std::string takeFirst(StringList& fields) {
    return fields.empty() ? std::string() : fields[0];
}

StringList valuesAfter(StringList& fields, std::size_t keyCount) {
    if (fields.size() <= keyCount)
        return {};
    return StringList(std::make_move_iterator(fields.begin() + static_cast<long>(keyCount)),
                      std::make_move_iterator(fields.end()));
}

// Rows keyed by their first field; a later record for the same key replaces.
void readKeyedRows(const PM_DEVKEY& keys, const char* key, TarnSDSFileSection& section) {
    readRecords(keys, key, [&](StringList& fields) {
        std::string rowKey = takeFirst(fields);
        section.m_datas[rowKey] = valuesAfter(fields, 1);
    });
}

}  // namespace

bool TarnSDSFile::loadDeviceAcd() {
    resetAll();
    PM_PIC_HDL family(m_pm.c_str(), nullptr, nullptr);

    // The shared file describes the ASC chips every family may attach.
    QDir dataDir = BaseSystem::getDataPath();
    if (dataDir.exists(QStringLiteral("device.acd"))) {
        PM_DEVKEY shared(
            QFile::encodeName(dataDir.filePath(QStringLiteral("device.acd"))).constData(), 0);
        g_getMemerItems(shared, "ASC_RESOURCE_ITMES", m_ascResourceItems);
        g_getMemerItems(shared, "ASC_ITMES", m_ascSection.m_items);
        readRecords(shared, "ASC_DATAS", [&](StringList& fields) {
            std::string chip = takeFirst(fields);
            m_ascSection.m_datas[chip] = valuesAfter(fields, 1);
            // A record without fields names no chip and leaves the default alone.
            if (!fields.empty())
                m_defaultASC = chip;
        });
        std::string defaultChip;
        if (readSingle(shared, "ASC_DEFAULT", defaultChip))
            m_defaultASC = defaultChip;
    }

    PM_DEVKEY keys("device.acd", family, 1, 0, 0);

    m_switchedOff = false;
    if (std::getenv("TARN_SHOW_ALL_DEVICES") == nullptr) {
        std::string enabled;
        const bool written = readSingle(keys, "PM_ENABLE", enabled);
        if (!written || util::toLower(enabled) != "true") {
            m_switchedOff = written;
            family.kill();
            return false;
        }
    }

    if (!readSingle(keys, "PART_GENERATE_METHOD", m_partGenerateMethod))
        m_partGenerateMethod = "auto";

    // A family file without package aliases is not a usable family file.
    int aliasRecords = readRecords(keys, "PKG_ALIAS", [&](StringList& fields) {
        std::string package = takeFirst(fields);
        m_pkgAlias[package] = valuesAfter(fields, 1);
    });
    if (aliasRecords == 0) {
        family.kill();
        return false;
    }

    g_getMemerItems(keys, "RESOURCE_ITMES", m_resourceItems);
    readRecords(keys, "RESOURCE_LABELS", [&](StringList& fields) {
        if (fields.size() == 2)
            m_resourceLabels.emplace(fields[0], fields[1]);
    });
    g_getMemerItems(keys, "ASC_TYPES", m_ascTypes);
    g_getMemerItems(keys, "PART_EXCEPTION", m_partExceptions);
    g_getMemerItems(keys, "DEVICE_EXCEPTION", m_deviceExceptions);
    readRecords(keys, "PACKAGE_EXCEPTION", [&](StringList& fields) {
        if (fields.size() == 2)
            m_packageExceptions.emplace_back(fields[0], fields[1]);
    });

    g_getMemerItems(keys, "PM_ITEMS", m_pmSection.m_items);
    StringList pmValues;
    if (g_getMemerItems(keys, "PM_DATAS", pmValues) > 0)
        m_pmSection.m_datas[m_pm] = pmValues;

    g_getMemerItems(keys, "DEVICE_ITEMS", m_deviceSection.m_items);
    readKeyedRows(keys, "DEVICE_DATAS", m_deviceSection);

    g_getMemerItems(keys, "PACKAGE_ITEMS", m_packageSection.m_items);
    readRecords(keys, "PACKAGE_DATAS", [&](StringList& fields) {
        std::string device = fields.size() > 0 ? fields[0] : std::string();
        std::string package = fields.size() > 1 ? fields[1] : std::string();
        m_packageSection.m_datas[devicePackageKey(device, package)] = valuesAfter(fields, 2);
    });

    g_getMemerItems(keys, "PART_ITEMS", m_partSection.m_items);
    readKeyedRows(keys, "PART_DATAS", m_partSection);

    family.kill();
    return true;
}

}  // namespace tarn::vyxpn
