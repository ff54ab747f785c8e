// SPDX-License-Identifier: MIT
#pragma once
// Building a family apart from the manager, so that init() can build several
// at once on helper threads and take them in its own order. Internal.

#include <cstddef>
#include <exception>
#include <memory>
#include <string>

#include "platform/ut_trace_recording.h"

namespace tarn::vyxpn {

class TarnDeviceMngr;
class TarnSDSFile;

// One family built, not yet in the manager, with what it said meanwhile.
struct FamilyBuild {
    std::unique_ptr<TarnSDSFile> file;
    bool ready = false;        // what TarnSDSFile::init() answered
    std::exception_ptr error;  // what it threw instead
    TraceRecording messages;   // empty unless recorded
};

// Builds the family of `pm` for `mngr`, which it only hands to the family
// object: nothing of the manager is read or changed. With `record`, traces
// and progress messages are kept in the result for the manager to replay
// instead of reaching the handlers on this thread.
FamilyBuild buildFamily(const std::string& pm, TarnDeviceMngr* mngr, bool record);

// How many threads init() builds `families` families on: DEVCTRL_LOAD_THREADS
// when it holds a positive number, else the processor's hardware threads;
// never more than there are families. 1 means the calling thread alone.
unsigned familyLoadThreads(std::size_t families);

}  // namespace tarn::vyxpn
