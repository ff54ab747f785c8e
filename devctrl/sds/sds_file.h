// SPDX-License-Identifier: MIT
#pragma once
// One device family's data: the tables loaded from its device table file and
// part data file, and the part and resource tables generated from them.

#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "devctrl/sds/asc_capacity.h"
#include "devctrl/sds/data_error.h"
#include "devctrl/sds/item_source.h"
#include "devctrl/sds/part_list_kind.h"
#include "devctrl/sds/sds_file_section.h"
#include "devctrl/sds/write_result.h"

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

class TarnDeviceMngr;
class TarnDeviceObj;
class TarnPartIndex;

using KeyValueReport = std::vector<std::pair<std::string, std::string>>;

class DEVCTRL_API TarnSDSFile {
  public:
    // Defined with the manager, which is the family's PartAscCapacity.
    TarnSDSFile(std::string pm, TarnDeviceMngr* mngr);
    ~TarnSDSFile();
    TarnSDSFile(const TarnSDSFile&) = delete;
    TarnSDSFile& operator=(const TarnSDSFile&) = delete;

    // ---- lifecycle (sds_file.cpp) ----
    // Loads the device table file, then the part data file, then builds the
    // part and resource tables. False only when the device table file failed.
    bool init();
    // Empties the loaded tables; keeps the generated ones and the method.
    void reset();
    // reset() and the generated tables too.
    void resetAll();
    const std::vector<std::string>& getASCTypes() const { return m_ascTypes; }
    // The path of the family's own device table file; "" for a PM the
    // installation does not know (a family built in code).
    std::string deviceTablePath() const;
    // The path of the device table file every family shares (the ASC chip
    // catalogue).
    static std::string sharedTablePath();
    // The DataError for a bad value of the device table file: `key` and the
    // record (its leading fields) that hold it.
    DataError dataError(const std::string& key, const std::string& row,
                        const std::string& problem) const;
    // The same for an item read through the device-and-package lookup, from
    // the table `origin` names.
    DataError itemError(ItemOrigin origin, const std::string& device, const std::string& package,
                        const std::string& problem) const;

    // ---- device table file (sds_load_acd.cpp) ----
    bool loadDeviceAcd();
    // Whether the last loadDeviceAcd() failed because PM_ENABLE is written
    // with a value other than true: a family switched off on purpose.
    bool switchedOff() const { return m_switchedOff; }

    // ---- part data file (sds_load_pwd.cpp) ----
    int loadPWD_Bin(std::string pm, const char* directory,
                    const std::vector<std::string>& resourceItems);
    int loadPWD_Bin_internal(const char* pm, const char* directory,
                             const std::vector<std::string>& resourceItems);
    bool loadPWD(std::string path, const std::vector<std::string>& resourceItems);
    bool mergePWDToACD(TarnSDSFileSection& acd, TarnSDSFileSection& pwd);

    // ---- database building (sds_build_database.cpp) ----
    void buildDatabase();
    void _buildDatabase_auto();
    void _buildDatabase_opn();

    // ---- part lists (sds_part_lists.cpp) ----
    void getDevices(std::vector<std::string>& list, bool withObsolete, bool ascOnly) const;
    void getPackages(const std::string& device, std::vector<std::string>& list, bool withObsolete,
                     bool ascOnly) const;
    void getSpeeds(const std::string& device, const std::string& package,
                   std::vector<std::string>& list, bool withObsolete, bool ascOnly) const;
    void getOperations(const std::string& device, const std::string& package,
                       const std::string& speed, std::vector<std::string>& list, bool withObsolete,
                       bool ascOnly) const;
    void getAllParts(std::vector<std::string>& list, bool withObsolete, bool ascOnly) const;
    void getCustomItems(std::vector<std::string>& list) const;
    // A device, package, speed or condition list as users see it (natural
    // order; packages by pin count). Unused cells are ignored.
    void getSortedList(PartListKind kind, const std::string& device, const std::string& package,
                       const std::string& speed, std::vector<std::string>& list, bool withObsolete,
                       bool ascOnly) const;
    // The filter every part list applies: obsolete parts count only with
    // `withObsolete`, and with `ascOnly` only parts that may use ASC chips.
    bool partPasses(const std::string& part, bool withObsolete, bool ascOnly) const;
    bool partTakesAsc(const std::string& part) const;
    // Whether getAllParts would list anything.
    bool anyPartPasses(bool withObsolete, bool ascOnly) const;
    static void filterVector(std::vector<std::string>& row, const std::vector<int>& keep);

    // ---- item values (sds_item_values.cpp) ----
    std::string getItemValue(const std::string& item, const std::string& part,
                             std::string defaultValue) const;
    std::string internalGetDevPkgItemValue(const std::string& item, const std::string& device,
                                           const std::string& package,
                                           std::string defaultValue) const;
    std::string _internalGetDevPkgItemValue(bool& found, const std::string& item,
                                            const std::string& device, const std::string& package,
                                            std::string defaultValue) const;
    std::string internalGetPartItemValue(const std::string& item, const std::string& part,
                                         std::string defaultValue) const;
    std::string _internalGetPartItemValue(bool& found, const std::string& item,
                                          const std::string& part, std::string defaultValue) const;
    // The cell getItemValue reads for `item` of `part`, and its table; every
    // item lookup goes through here.
    ItemSource locateItem(const std::string& item, const std::string& part) const;
    // The same for the package, device and family tables alone.
    ItemSource locateDevPkgItem(const std::string& item, const std::string& device,
                                const std::string& package) const;

    // ---- part names (sds_part_names.cpp) ----
    std::string getShortPackage(const std::string& device, const std::string& package) const;
    std::string createPart(const std::string& device, const std::string& speed,
                           const std::string& package, char condition,
                           const std::string& suffix) const;
    // The same from the package's short form, already looked up.
    static std::string partNameOf(const std::string& device, const std::string& speed,
                                  const std::string& shortPackage, char condition,
                                  const std::string& suffix);
    std::string createInnerPart(std::string device, std::string speed, std::string package,
                                const std::string& suffix) const;
    bool getNameByPart(const std::string& part, std::string& device, std::string& package,
                       std::string& speed, std::string& condition) const;
    // The same for a row of the part table already found.
    bool getNameByRow(const std::vector<std::string>& row, std::string& device,
                      std::string& package, std::string& speed, std::string& condition) const;
    bool isObsDevice(const std::string& part) const;
    static std::string getFullConditionName(char condition);
    // The letter a condition adds to a part's name (and short package).
    static char partConditionLetter(char condition);

    // ---- ASC data and device data (sds_asc.cpp) ----
    bool getInternalASCs(const std::string& part, std::map<std::string, int>& ascs) const;
    bool getSupportedASCs(const std::string& part, std::vector<std::string>& ascs) const;
    int getGlobalSupportedASCs(std::vector<std::string>& ascs) const;
    bool getGlobalASCValue(const std::string& asc, const std::string& item,
                           std::string& value) const;
    void _calcASCDataByType(const std::string& asc, int count,
                            std::map<std::string, int>& resources) const;
    bool calcASCData(TarnDeviceObj& dev, KeyValueReport& data) const;  // in device/
    // The same for a part and the chips linked to it, which is all the
    // report reads of a device object.
    bool calcASCData(const std::string& part, const std::map<std::string, int>& linked,
                     KeyValueReport& data) const;
    bool calcDeviceData(const std::string& device, const std::string& package,
                        KeyValueReport& data) const;

    // ---- indexes of the part table (sds_index.cpp) ----
    // Queries keep indexes of the tables, built when first needed. Loading,
    // resetting and building drop them and bump version(), which the
    // manager's indexes compare before they answer. The tables below
    // are public, and a host may edit them between queries:
    // - Adding or erasing rows, clearing or refilling a table, adding or
    //   removing columns: noticed by the next query (row and column counts
    //   and the first and last keys of each table are compared), which
    //   rebuilds what it needs. Nothing else is required.
    // - Changing a cell in place (a Status, a Device), renaming a column, or
    //   replacing a row by another with the same count and end keys: not
    //   noticed. Call invalidateIndexes() afterwards, on this family or on
    //   the manager, before the next query.
    // No edit can make a query read freed memory: the indexes hold copies
    // and positions only. Like the manager, a family object is not for
    // concurrent use.
    void invalidateIndexes();
    // Drops this family's indexes only (the manager does this for each of its
    // families when any of them changes).
    void dropOwnIndexes();
    // Changes each time the indexes are invalidated, so that whoever indexes
    // this family's tables (the manager) notices edits it cannot see.
    std::uint64_t version() const { return m_version; }
    // The index, after checking that the tables still look as they did when
    // it was begun. `ascOnly` answers depend on every family the manager
    // holds (which one owns a name), so those check ascCapacity() too.
    TarnPartIndex& index(bool ascOnly = false) const;

    // ---- writer and dump (sds_write.cpp) ----
    // Writes the support file and says whether it worked; writeSDS is this
    // with the answer dropped.
    SdsWriteResult writeSupportFile(const std::string& path) const;
    void writeSDS(std::string path) const;
    // The text writeSDS writes, for a caller that writes it elsewhere (to
    // standard output, say).
    std::string sdsText() const;
    // Dumps every table to `out`; without an argument to standard output.
    void printMe(std::ostream& out) const;
    void printMe() const;

    // ---- the tables; public so hosts and tests can read them ----
    std::string m_pm;
    std::map<std::string, std::vector<std::string>> m_pkgAlias;
    std::vector<std::string> m_resourceItems;
    std::map<std::string, std::string> m_resourceLabels;
    std::vector<std::string> m_partExceptions;
    std::vector<std::string> m_deviceExceptions;
    std::vector<std::pair<std::string, std::string>> m_packageExceptions;
    TarnSDSFileSection m_pmSection;       // "PM map": one row keyed by m_pm
    TarnSDSFileSection m_deviceSection;   // "Device map": rows keyed by device
    TarnSDSFileSection m_packageSection;  // "Package map": rows keyed by device_package
    TarnSDSFileSection m_partSection;     // "Def Part map": rows keyed by part name
    TarnSDSFileSection m_genericDevices;  // the generated part table
    TarnSDSFileSection m_deviceInfo;      // the generated resource table
    std::vector<std::string> m_ascTypes;
    TarnSDSFileSection m_ascSection;
    std::vector<std::string> m_ascResourceItems;
    std::string m_defaultASC;
    std::string m_partGenerateMethod;
    // The manager given at construction; this layer never calls it.
    TarnDeviceMngr* m_pDeviceMngr = nullptr;

    // Who decides which parts may use ASC chips; null when nobody does, and
    // then no part may.
    PartAscCapacity* ascCapacity() const { return m_ascCapacity; }

  private:
    mutable std::unique_ptr<TarnPartIndex> m_index;
    bool m_switchedOff = false;
    std::uint64_t m_version = 0;
    PartAscCapacity* m_ascCapacity = nullptr;
};

}  // namespace tarn::vyxpn
