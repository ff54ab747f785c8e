// SPDX-License-Identifier: MIT
#include "platform/pm_pic.h"

PM_PIC_HDL::PM_PIC_HDL(const char* pm, const char* /*device*/, const char* /*package*/) {
    if (!pm)
        return;
    const PM_DATABASE* database = PM_DATABASE::buildMe();
    const PM_RECORD* record = database->findPm(pm);
    if (!record)
        record = database->findFamily(pm);
    if (!record)
        return;
    // Copies, not a pointer: the handle must outlive a rebuilt database.
    m_pm = record->pm;
    m_directory = record->directory;
}

void PM_PIC_HDL::kill() {
    m_pm.clear();
    m_directory.clear();
}
