// SPDX-License-Identifier: MIT
#pragma once
// The process-wide device manager: loads one family data object per installed
// PM and answers every query by PM, family or full part name.

#include <cstdint>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "devctrl/mngr/part_owner_index.h"
#include "devctrl/sds/asc_capacity.h"
#include "devctrl/sds/data_error.h"
#include "devctrl/sds/table_stamp.h"
#include "devctrl/sds/write_result.h"
#include "devctrl/util/string_list.h"

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

class TarnSDSFile;
class TarnDeviceObj;
struct FamilyBuild;

using KeyValueReport = std::vector<std::pair<std::string, std::string>>;

class DEVCTRL_API TarnDeviceMngr : public PartAscCapacity {
  public:
    TarnDeviceMngr();
    ~TarnDeviceMngr();
    TarnDeviceMngr(const TarnDeviceMngr&) = delete;
    TarnDeviceMngr& operator=(const TarnDeviceMngr&) = delete;

    // ---- lifecycle and family catalogue (mngr_lifecycle.cpp, mngr_catalogue.cpp) ----
    // What loading does with a family whose data raise DataError (a negative
    // PKGIndex, a listed part without condition) while it is built.
    enum class BrokenFamilies {
        Raise,  // the error leaves init() and getInstance(): the designed default
        Skip,   // the family stays unloaded, the error is kept in loadFailures()
    };
    // The one manager, created and loaded by the first call. Any later call
    // returns it, whatever `broken` says.
    //
    // When loading raises (BrokenFamilies::Raise and bad data), the manager
    // is destroyed again and the error passes on: no manager is left behind,
    // m_pMngr is null, and the next getInstance() loads the installation
    // afresh; with the data still broken it raises the same error again. A
    // host therefore never gets a silently empty or half-loaded manager.
    static TarnDeviceMngr* getInstance();
    static TarnDeviceMngr* getInstance(BrokenFamilies broken);
    // Loads every installed family again. With BrokenFamilies::Raise an
    // error leaves the families loaded before the broken one in place.
    void init();
    void init(BrokenFamilies broken);
    // The families the last init() left out under BrokenFamilies::Skip, in
    // load order: each error names its PM, file, key and record.
    const std::vector<DataError>& loadFailures() const { return m_loadFailures; }
    // Whether the last init() found `pm` switched off on purpose: its device
    // table file sets PM_ENABLE to something other than true. Such a family
    // is not loaded (and traced as any load failure is), but it is
    // configuration, not damage.
    bool isSwitchedOff(const std::string& pm) const { return m_switchedOff.count(pm) != 0; }
    void reset();
    bool loadDeviceInfo(const std::string& pm, bool reload);

    static void baseGetAllFamilies(StringList& out);
    static void baseGetAllPMs(StringList& out);
    static std::string baseFamilyToPm(const std::string& family);
    static std::string basePmToFamily(const std::string& pm);
    // A newly allocated copy (release with free) of a key of the PM's key
    // data; null for an unknown PM or a key without value.
    static char* getValueByKey(const char* pm, const char* key);
    static std::string getDefaultDevice();
    // Stores `part` as the user's default device, read back by
    // getDefaultDevice (here and in every other program of the tool chain).
    static void setDefaultDevice(const std::string& part);

    // The loaded family object of a PM, or null.
    TarnSDSFile* getFamilyFile(const std::string& pm) const;
    // Every loaded family by PM, in byte-wise PM order.
    const std::map<std::string, TarnSDSFile*>& getFamilyFiles() const { return m_familyFiles; }
    // Takes ownership of a family object built elsewhere (tests, generated
    // catalogues), replacing a loaded one of the same PM.
    void adoptFamilyFile(TarnSDSFile* file);

    // ---- enumeration queries (mngr_enumeration.cpp, mngr_base_queries.cpp) ----
    void getDevices(const std::string& pm, StringList& out, bool withObsolete, bool ascOnly);
    void getPackages(const std::string& pm, const std::string& device, StringList& out,
                     bool withObsolete, bool ascOnly);
    void getSpeeds(const std::string& pm, const std::string& device, const std::string& package,
                   StringList& out, bool withObsolete, bool ascOnly);
    void getOperations(const std::string& pm, const std::string& device, const std::string& package,
                       const std::string& speed, StringList& out, bool withObsolete, bool ascOnly);
    void getAllPartsByPM(const std::string& pm, StringList& out, bool withObsolete, bool ascOnly);
    void getAllFamilies(StringList& out, bool withObsolete, bool ascOnly);

    static void baseGetDevices(const std::string& pm, StringList& out);
    static void baseGetPackages(const std::string& pm, const std::string& device, StringList& out);
    static void baseGetSpeeds(const std::string& pm, const std::string& device,
                              const std::string& package, StringList& out);
    static void baseGetOperations(const std::string& pm, const std::string& device,
                                  const std::string& package, const std::string& speed,
                                  StringList& out);

    // ---- part names and name translation (mngr_part_names.cpp) ----
    std::string getPartName(const std::string& pm, const std::string& device,
                            const std::string& package, const std::string& speed,
                            const std::string& condition);
    bool getInnerDeviceName(const std::string& part, std::string& inner);
    int getNewFormatDeviceName(const std::string& name, std::string& newName);

    // ---- feature settings (mngr_settings.cpp) ----
    bool enableSynplify(const std::string& part);
    bool enablePrecision(const std::string& part);
    bool enableICF(const std::string& part);
    bool enableLST(const std::string& part);
    bool enableBitgen(const std::string& part);
    std::string getDefaultSynthesis(const TarnDeviceObj& device);
    std::string getDefaultSynthesis(const std::string& part);

    // ---- part lookup and item values (mngr_part_lookup.cpp) ----
    bool getNameByPart(const std::string& part, std::string& pm, std::string& device,
                       std::string& package, std::string& speed, std::string& condition);
    bool exists(const std::string& part);
    std::string getItemValue(const std::string& item, const std::string& part,
                             const std::string& defaultValue);
    std::string getItemValue(const std::string& item, const std::string& pm,
                             const std::string& device, const std::string& package,
                             const std::string& defaultValue);
    static bool stringToBool(const std::string& text);
    int getASCMaxNum(const std::string& part);
    bool enableASC(const std::string& part) override;

    // ---- writer and dump (mngr_write.cpp) ----
    // Writes the support file of `pm` and says whether it worked (a PM that
    // is not loaded writes nothing, with that as the reason); writeSDS is
    // this with the answer dropped.
    SdsWriteResult writeSupportFile(const std::string& pm, const std::string& path);
    void writeSDS(const std::string& pm, std::string path);
    // Dumps the tables of `pm` to `out`; without it to standard output.
    void printMe(const std::string& pm, std::ostream& out);
    void printMe(const std::string& pm);

    // ---- ASC data and device data report (mngr_asc_report.cpp) ----
    bool getInternalASCs(const std::string& part, std::map<std::string, int>& ascs);
    bool getSupportedASCs(const std::string& part, StringList& ascs);
    std::string getDefaultASC();
    int getGloablSupportedASCs(StringList& ascs);
    bool getGlobalASCValue(const std::string& asc, const std::string& item, std::string& value);
    bool calcDeviceData(const std::string& pm, const std::string& device,
                        const std::string& package, KeyValueReport& data);
    bool calcDeviceData(const std::string& part, KeyValueReport& data);
    bool calcDeviceData(TarnDeviceObj& dev, KeyValueReport& data);

    // ---- validation (mngr_validation.cpp) ----
    bool isValid(const TarnDeviceObj& dev, std::string& message);
    // The first checks of isValid alone: every linked chip is one the part
    // may link, with a count that is not negative. False with isValid's
    // message otherwise. The part must be known.
    bool checkLinkedASCs(const TarnDeviceObj& dev, std::string& message);
    // The results of checkDevice (it returns them as int; 2 is never given).
    enum DeviceCheck : int {
        DeviceCheckValid = 0,    // the name stands as it is
        DeviceCheckUnknown = 1,  // no loaded family knows it (nor its new name)
        // Renamed or migrated, or an engineering-sample name (ending in ES)
        // of a production part: use the name given in newName.
        DeviceCheckUseNewName = 3,
        // Valid, but not recommended: newName is the recommended part.
        DeviceCheckReplacementRecommended = 4,
    };
    int checkDevice(const std::string& name, std::string& newName);

    // ---- indexes (mngr_indexes.cpp) ----
    // Queries keep indexes of the loaded tables, built when first needed and
    // dropped whenever a family is loaded, reloaded, adopted or reset. A host
    // may edit a loaded family's public tables between queries: added or
    // erased rows and cleared or refilled tables are noticed by the next
    // query; a cell changed in place (a Status, say), a renamed column or a
    // row replaced by another without changing the count or the first and
    // last keys are not, and the host calls this afterwards (see
    // TarnSDSFile::invalidateIndexes). No edit can make a query read freed
    // memory.
    void invalidateIndexes();
    // Changes whenever the indexes are dropped; cached answers that depend on
    // every loaded family (ASC capacity of a part) compare it.
    std::uint64_t indexGeneration() const { return m_indexGeneration; }
    std::uint64_t ascCapacityGeneration() override {
        noticeTableChanges(true);
        return m_indexGeneration;
    }
    // What the queries call first: compares the loaded families' tables (the
    // part tables alone, or with `everyTable` those that item lookups read
    // too) with how they looked when the indexes were begun, and drops the
    // manager's indexes when any changed. Constant time per family.
    void noticeTableChanges(bool everyTable);

    // ---- load progress (load_progress.h) ----
    // Whether the last init() stopped because the progress handler asked it
    // to; the families loaded before the stop stay loaded. A host that
    // cancelled getInstance() deletes m_pMngr (or calls init() again).
    bool loadCancelled() const { return m_loadCancelled; }

    static TarnDeviceMngr* m_pMngr;

    // ---- partial load (mngr_partial_load.cpp) ----
    // The one manager, created by the first call with only the installed
    // PMs among `pms` loaded (see initOnly). Any later call returns the
    // manager there is, whatever it holds.
    static TarnDeviceMngr* getInstanceOf(const StringList& pms, BrokenFamilies broken);
    // init() for the installed PMs among `pms` alone: they load in init()'s
    // order, with the progress, traces and failures init() gives for them;
    // every other family stays unloaded. For a program that knows which
    // families its question depends on.
    void initOnly(const StringList& pms, BrokenFamilies broken);
    // The index behind part name lookups (mngr_indexes.cpp): which loaded
    // family owns each name.
    const PartOwnerIndex& partOwnerIndex();

  private:
    // Loads `pms` in their order, replacing whatever was loaded: the one
    // load loop of init() and initOnly().
    void loadFamilies(const StringList& pms, BrokenFamilies broken);
    // Drops the loaded family of `pm`, if any.
    void dropFamily(const std::string& pm);
    // Takes a family built apart into the manager, as loadDeviceInfo does
    // with the one it builds: replays what the build said, then stores the
    // family, or records or raises its failure.
    bool adoptFamilyBuild(const std::string& pm, FamilyBuild& build);

    // The family a part name belongs to: the first, in PM order, whose part
    // table holds it and has the columns a name lookup reads. From an index
    // built on first use; null when no family holds the name.
    const PartOwnerIndex::Owner* ownerOf(const std::string& part);
    // Drops what depends on the families' tables, without touching the
    // families' own indexes (which check their tables themselves).
    void tablesChanged();
    void stampTables();

    std::map<std::string, TarnSDSFile*> m_familyFiles;
    std::uint64_t m_indexGeneration = 1;
    std::unique_ptr<PartOwnerIndex> m_partOwners;
    // How each loaded family's tables looked when the indexes were begun, in
    // m_familyFiles order; none until a query needs them.
    std::optional<std::vector<FamilyTablesStamp>> m_tableStamps;
    bool m_loadCancelled = false;
    BrokenFamilies m_broken = BrokenFamilies::Raise;
    std::vector<DataError> m_loadFailures;
    std::set<std::string> m_switchedOff;
};

}  // namespace tarn::vyxpn
