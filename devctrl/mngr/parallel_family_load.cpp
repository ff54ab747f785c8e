// SPDX-License-Identifier: MIT
#include "devctrl/mngr/parallel_family_load.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <thread>

#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

FamilyBuild buildFamily(const std::string& pm, TarnDeviceMngr* mngr, bool record) {
    FamilyBuild build;
    std::optional<TraceRecorder> recorder;
    if (record)
        recorder.emplace(build.messages);
    build.file = std::make_unique<TarnSDSFile>(pm, mngr);
    try {
        build.ready = build.file->init();
    } catch (...) {
        // Unwound here, so whatever the family's readers said on the way out
        // (the summaries of their file limits) is recorded before the error.
        build.error = std::current_exception();
    }
    return build;
}

unsigned familyLoadThreads(std::size_t families) {
    unsigned threads = std::thread::hardware_concurrency();
    if (const char* wanted = std::getenv("DEVCTRL_LOAD_THREADS")) {
        char* end = nullptr;
        const unsigned long value = std::strtoul(wanted, &end, 10);
        if (end != wanted && *end == '\0' && value > 0 && value <= 1024)
            threads = static_cast<unsigned>(value);
    }
    threads = std::max(threads, 1u);
    return static_cast<unsigned>(
        std::min<std::size_t>(threads, std::max<std::size_t>(families, 1)));
}

}  // namespace tarn::vyxpn
