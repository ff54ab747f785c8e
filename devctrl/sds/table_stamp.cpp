// SPDX-License-Identifier: MIT
#include "devctrl/sds/table_stamp.h"

#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

// The part table first: partTableMatches looks at it alone.
std::array<const TarnSDSFileSection*, FamilyTablesStamp::kTables> FamilyTablesStamp::tablesOf(
    const TarnSDSFile& file) {
    return {&file.m_genericDevices, &file.m_partSection, &file.m_packageSection,
            &file.m_deviceSection, &file.m_pmSection};
}

FamilyTablesStamp::FamilyTablesStamp(const TarnSDSFile& file)
    : m_file(&file), m_version(file.version()) {
    const auto tables = tablesOf(file);
    for (std::size_t i = 0; i < kTables; ++i)
        m_tables[i] = TableStamp(*tables[i]);
}

bool FamilyTablesStamp::partTableMatches(const TarnSDSFile& file) const {
    return m_file == &file && m_version == file.version() &&
           m_tables[0].matches(file.m_genericDevices);
}

bool FamilyTablesStamp::matches(const TarnSDSFile& file) const {
    if (m_file != &file || m_version != file.version())
        return false;
    const auto tables = tablesOf(file);
    for (std::size_t i = 0; i < kTables; ++i)
        if (!m_tables[i].matches(*tables[i]))
            return false;
    return true;
}

}  // namespace tarn::vyxpn
