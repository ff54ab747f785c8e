#include "index/reference_walks.h"

#include <strings.h>

#include <algorithm>

#include "devctrl/mngr/comparators.h"

using tarn::vyxpn::PartListKind;
using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnSDSFile;
using tarn::vyxpn::TarnSDSFileSection;

namespace devctrl_test::ref {

namespace {

const char* const kColumns[] = {"Device", "Package", "Speed", "Condition"};

int column(const TarnSDSFileSection& table, const char* name) {
    const auto& items = table.m_items;
    const auto found = std::find(items.begin(), items.end(), name);
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

// Cells compare as C strings: text after an embedded NUL does not count, and
// a cell the row does not have never equals anything.
bool cellEqualsIgnoringCase(const std::vector<std::string>& row, int at, const std::string& value) {
    return static_cast<std::size_t>(at) < row.size() &&
           strcasecmp(row[at].c_str(), value.c_str()) == 0;
}

}  // namespace

bool passes(const TarnSDSFile& file, const std::string& part, bool withObsolete, bool ascOnly) {
    if (!withObsolete && file.isObsDevice(part))
        return false;
    if (ascOnly) {
        // No manager: nothing is known to take ASC chips.
        if (!file.m_pDeviceMngr || !file.m_pDeviceMngr->enableASC(part))
            return false;
    }
    return true;
}

void familyList(const TarnSDSFile& file, PartListKind kind, const std::string& device,
                const std::string& package, const std::string& speed, Strings& list,
                bool withObsolete, bool ascOnly) {
    const TarnSDSFileSection& table = file.m_genericDevices;
    const auto wanted = static_cast<std::size_t>(kind);
    if (column(table, "Status") < 0 || column(table, kColumns[wanted]) < 0)
        return;
    const std::string* cells[] = {&device, &package, &speed};
    std::vector<int> matchColumns;
    for (std::size_t i = 0; i < wanted; ++i) {
        matchColumns.push_back(column(table, kColumns[i]));
        if (matchColumns.back() < 0)
            return;
    }
    const int wantedColumn = column(table, kColumns[wanted]);

    list.clear();
    for (const auto& [part, row] : table.m_datas) {
        // Cells first, filters second: a short row raises only when the cells
        // before it matched, and the filters run only for matching parts.
        bool matching = true;
        for (std::size_t i = 0; i < matchColumns.size() && matching; ++i)
            matching = row.at(matchColumns[i]) == *cells[i];
        if (!matching || !passes(file, part, withObsolete, ascOnly))
            continue;
        const std::string& value = row.at(wantedColumn);
        if (std::find(list.begin(), list.end(), value) == list.end())
            list.push_back(value);
    }
}

void sortAsShown(PartListKind kind, Strings& list) {
    if (kind == PartListKind::Packages)
        tarn::vyxpn::sortPackages(list);
    else
        tarn::vyxpn::sortNatural(list);
}

void sortedList(const TarnDeviceMngr& mngr, const std::string& pm, PartListKind kind,
                const std::string& device, const std::string& package, const std::string& speed,
                Strings& list, bool withObsolete, bool ascOnly) {
    const auto found = mngr.getFamilyFiles().find(pm);
    if (found == mngr.getFamilyFiles().end() || !found->second)
        return;
    familyList(*found->second, kind, device, package, speed, list, withObsolete, ascOnly);
    sortAsShown(kind, list);
}

Strings allParts(const TarnSDSFile& file, bool withObsolete, bool ascOnly) {
    Strings parts;
    for (const auto& entry : file.m_genericDevices.m_datas)
        if (passes(file, entry.first, withObsolete, ascOnly))
            parts.push_back(entry.first);
    return parts;
}

Strings allFamilies(const TarnDeviceMngr& mngr, bool withObsolete, bool ascOnly) {
    Strings families;
    for (const auto& [pm, file] : mngr.getFamilyFiles()) {
        if (!file || allParts(*file, withObsolete, ascOnly).empty())
            continue;
        const std::string family = TarnDeviceMngr::basePmToFamily(pm);
        if (!family.empty())
            families.push_back(family);
    }
    tarn::vyxpn::sortNatural(families);
    return families;
}

std::string partName(const TarnDeviceMngr& mngr, const std::string& pm, const std::string& device,
                     const std::string& package, const std::string& speed,
                     const std::string& condition) {
    const auto found = mngr.getFamilyFiles().find(pm);
    if (found == mngr.getFamilyFiles().end() || !found->second)
        return "";
    const TarnSDSFileSection& table = found->second->m_genericDevices;
    const std::string* wanted[] = {&device, &package, &speed, &condition};
    int columns[4];
    for (int i = 0; i < 4; ++i)
        if ((columns[i] = column(table, kColumns[i])) < 0)
            return "";
    for (const auto& [part, row] : table.m_datas) {
        bool equal = true;
        for (int i = 0; i < 4 && equal; ++i)
            equal = cellEqualsIgnoringCase(row, columns[i], *wanted[i]);
        if (equal)
            return part;
    }
    return "";
}

NameFields nameByPart(const TarnDeviceMngr& mngr, const std::string& part) {
    NameFields fields;
    for (const auto& [pm, file] : mngr.getFamilyFiles()) {
        if (!file)
            continue;
        const TarnSDSFileSection& table = file->m_genericDevices;
        int columns[4];
        bool complete = true;
        for (int i = 0; i < 4; ++i)
            complete = complete && (columns[i] = column(table, kColumns[i])) >= 0;
        const auto row = table.m_datas.find(part);
        if (!complete || row == table.m_datas.end())
            continue;
        // A short row is broken data: reading it raises rather than passing
        // as empty fields.
        fields.device = row->second.at(columns[0]);
        fields.package = row->second.at(columns[1]);
        fields.speed = row->second.at(columns[2]);
        fields.condition = row->second.at(columns[3]);
        fields.pm = pm;
        fields.found = true;
        return fields;
    }
    return fields;
}

}  // namespace devctrl_test::ref
