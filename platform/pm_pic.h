// SPDX-License-Identifier: MIT
#pragma once
// Part-model selection objects: select a family or PM, then a device, package
// and speed, and list what the selection offers.

#include <string>

#include "pm_database.h"
#include "pm_name_darray.h"

#include "export.h"

class DEVCTRL_API PM_SPEC {
  public:
    virtual ~PM_SPEC() = default;

    // Both select by PM code (exact) or, failing that, by family name
    // (without regard to case). They clear the device, package and speed
    // chosen before. False when nothing matches (the selection is then empty).
    bool set_pm(const char* name, unsigned char flags = 0);
    bool setPmInternal(const char* name, unsigned int flags = 0);

    // PM code of the selection, or null.
    const char* getPmName(unsigned char flags = 0) const;
    // The selected PM record, or null.
    const PM_RECORD* getPm(unsigned char flags = 0) const;

  protected:
    const PM_RECORD* m_pm = nullptr;
    const PM_DEVICE_RECORD* m_device = nullptr;
    const PM_PACKAGE_RECORD* m_package = nullptr;
    const PM_SPEED_RECORD* m_speed = nullptr;
};

class DEVCTRL_API PM_DEVPIC : public PM_SPEC {
  public:
    // Every installed family name, sorted as installedFamilies() gives them.
    PM_NAME_DARRAY makeInstalledArchList(unsigned int flags = 0) const;
    // Devices of the selected PM, packages of the selected device; a missing
    // array when nothing is selected.
    PM_NAME_DARRAY makeDeviceList(unsigned int flags = 0) const;
    PM_NAME_DARRAY makePkgList(unsigned int flags = 0) const;

    bool set_device(const char* device);
    bool set_package(const char* package);
};

class DEVCTRL_API PM_PIC : public PM_DEVPIC {
  public:
    // Selects the family/PM, device and package given; null leaves it open.
    PM_PIC(const char* family, const char* device, const char* package, unsigned char flags = 0);

    // Speed grades of the selected device and package.
    PM_NAME_DARRAY makeSpdList(unsigned int flags = 0) const;
    bool set_speed(const char* speed, unsigned char flags = 0);
    // The selected speed record with its condition flags, or null.
    const PM_SPEED_RECORD* getSpeedRecord() const { return m_speed; }

    // Full path of the selected PM's data file <pm><extension> in the PM's
    // directory, or null when there is no such file. The text stays valid
    // until the next call or the object's end.
    virtual const char* getDataFilePath(int kind, const char* extension, int, int);

  private:
    std::string m_dataFilePath;
};

// A handle on one PM (looked up by code or family name), for opening the
// PM's keyed data files. Copies are cheap; the handle stays usable after the
// database is rebuilt because it keeps what it needs.
class DEVCTRL_API PM_PIC_HDL {
  public:
    PM_PIC_HDL(const char* pm, const char* device, const char* package);
    // Drops the handle's hold; it then names no family.
    void kill();
    bool valid() const { return !m_directory.empty(); }
    const std::string& pm() const { return m_pm; }
    // Absolute path of <data>/<pm>, empty for an unknown PM.
    const std::string& directory() const { return m_directory; }

  private:
    std::string m_pm;
    std::string m_directory;
};
