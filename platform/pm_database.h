// SPDX-License-Identifier: MIT
#pragma once
// The part-model database: every PM installed in the data directory, with its
// family names, key data ("family.key") and base device/package/speed lists.

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "pm_devkey.h"
#include "ut_strobj.h"

#include "export.h"

// Operating conditions a speed grade is offered in.
enum PM_CONDITION_FLAGS : unsigned char {
    PM_COND_INDUSTRIAL = 1,
    PM_COND_COMMERCIAL = 2,
};

struct DEVCTRL_API PM_SPEED_RECORD {
    std::string grade;
    unsigned char conditionFlags = PM_COND_INDUSTRIAL | PM_COND_COMMERCIAL;
};

struct DEVCTRL_API PM_PACKAGE_RECORD {
    std::string name;
    std::vector<PM_SPEED_RECORD> speeds;
};

struct DEVCTRL_API PM_DEVICE_RECORD {
    std::string name;
    std::vector<PM_PACKAGE_RECORD> packages;

    // Positions in `packages` sorted by name (see PM_RECORD::devicesByName).
    std::vector<std::uint32_t> packagesByName;
    void indexPackages();
    const PM_PACKAGE_RECORD* findPackage(const std::string& name) const;
};

struct DEVCTRL_API PM_RECORD {
    std::string pm;                         // the directory name
    std::string directory;                  // absolute path of <data>/<pm>
    UT_STROBJ familyName;                   // first name of FAMILY
    std::vector<std::string> familyNames;   // every name of FAMILY
    std::shared_ptr<const PM_DEVKEY> keys;  // family.key
    std::vector<PM_DEVICE_RECORD> devices;  // DEVICES, PACKAGES, SPEEDS

    // Positions in `devices` sorted by name, so that finding a device costs
    // a binary search, not a scan (families may list many thousand devices).
    // Rebuilt by indexDevices() whenever `devices` changes.
    std::vector<std::uint32_t> devicesByName;
    void indexDevices();

    const PM_DEVICE_RECORD* findDevice(const std::string& name) const;
    PM_DEVICE_RECORD* findDevice(const std::string& name);
};

class DEVCTRL_API PM_DATABASE {
  public:
    // The process-wide database, built from BaseSystem::getDataPath() on the
    // first call and kept in _database until someone deletes it.
    static PM_DATABASE* buildMe();
    static PM_DATABASE* _database;

    // Builds a database from one data directory (used by buildMe and tests).
    explicit PM_DATABASE(const std::string& dataPath);

    // The PM whose code is exactly `pm`, or null.
    const PM_RECORD* findPm(const char* pm, unsigned int flags = 0) const;
    // The first PM (in byte-wise PM order) that lists `family` in its FAMILY
    // key, compared without regard to case; or null.
    const PM_RECORD* findFamily(const char* family) const;

    // Installed PMs in byte-wise order of their codes.
    const std::vector<PM_RECORD>& pms() const { return m_pms; }
    // Every family name of every installed PM, PMs in byte-wise order and
    // names in FAMILY order.
    std::vector<std::string> installedFamilies() const;
    const std::string& dataPath() const { return m_dataPath; }

    // Name translations the manager has already asked of this database
    // (family to PM, PM to family). They describe this data directory, so
    // they go with the database rather than outlive it.
    std::map<std::string, std::string>& familyToPmNames() const { return m_familyToPm; }
    std::map<std::string, std::string>& pmToFamilyNames() const { return m_pmToFamily; }

  private:
    void traceSharedFamilyNames() const;

    std::string m_dataPath;
    std::vector<PM_RECORD> m_pms;
    std::map<std::string, std::size_t> m_byPm;
    mutable std::map<std::string, std::string> m_familyToPm, m_pmToFamily;
};
