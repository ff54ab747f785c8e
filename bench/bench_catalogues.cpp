// SPDX-License-Identifier: MIT
#include "bench_catalogues.h"

#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>

#include "devctrl/mngr/device_mngr.h"
#include "platform/ut_trace.h"

namespace devctrl_bench {

namespace {

class CatalogueStore {
  public:
    ~CatalogueStore() {
        std::error_code ignored;
        if (!m_root.empty())
            std::filesystem::remove_all(m_root, ignored);
    }

    const BenchCatalogue& get(std::size_t parts) {
        auto found = m_catalogues.find(parts);
        if (found != m_catalogues.end())
            return found->second;
        if (m_root.empty()) {
            std::string pattern = (std::filesystem::temp_directory_path() / "devctrl-bench-XXXXXX");
            if (!mkdtemp(pattern.data()))
                throw std::runtime_error("cannot create a directory for the catalogues");
            m_root = pattern;
        }
        BenchCatalogue catalogue;
        catalogue.directory = (std::filesystem::path(m_root) / ("c" + std::to_string(parts)));
        tarn::vyxpn::gen::GeneratorOptions options;
        options.parts = parts;
        catalogue.info = tarn::vyxpn::gen::generateCatalogue(catalogue.directory, options);
        return m_catalogues.emplace(parts, std::move(catalogue)).first->second;
    }

  private:
    std::string m_root;
    std::map<std::size_t, BenchCatalogue> m_catalogues;
};

CatalogueStore& store() {
    static CatalogueStore instance;
    return instance;
}

}  // namespace

const BenchCatalogue& benchCatalogue(std::size_t parts) {
    return store().get(parts);
}

void useCatalogue(const BenchCatalogue& catalogue) {
    delete tarn::vyxpn::TarnDeviceMngr::m_pMngr;
    setenv("DEVCTRL_DATA_DIR", catalogue.directory.c_str(), 1);
    // The switched-off family's two load messages are expected; keep the
    // benchmark output readable.
    setDiagTraceHandler([](const char*, const char*) {});
}

}  // namespace devctrl_bench
