// SPDX-License-Identifier: MIT
#pragma once
// What a write of a family's file did, for callers that must tell the user:
// the specified writers return nothing.

#include <string>

namespace tarn::vyxpn {

struct SdsWriteResult {
    bool written = false;
    // One line saying why not ("cannot write FILE: ..."), empty when written.
    std::string reason;

    explicit operator bool() const { return written; }
};

}  // namespace tarn::vyxpn
