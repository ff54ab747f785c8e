// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "ut_strobj.h"

#include "export.h"

// A shared, reference-counted array of names. Copies share the array; the last
// holder's release frees it. A default-constructed array is "missing".
class DEVCTRL_API PM_NAME_DARRAY {
  public:
    PM_NAME_DARRAY() = default;
    explicit PM_NAME_DARRAY(std::vector<UT_STROBJ> names)
        : m_names(std::make_shared<const std::vector<UT_STROBJ>>(std::move(names))) {}

    explicit operator bool() const { return m_names != nullptr; }
    std::size_t size() const { return m_names ? m_names->size() : 0; }
    const UT_STROBJ& operator[](std::size_t i) const { return (*m_names)[i]; }
    long useCount() const { return m_names.use_count(); }
    void release() { m_names.reset(); }

  private:
    std::shared_ptr<const std::vector<UT_STROBJ>> m_names;
};
