// SPDX-License-Identifier: MIT
// The queries a device-selection dialog and the flow make, on the largest
// family of the million-part catalogue with every family loaded.

#include <benchmark/benchmark.h>

#include <string>
#include <tuple>
#include <vector>

#include "bench_catalogues.h"
#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"

namespace devctrl_bench {
namespace {

using tarn::vyxpn::KeyValueReport;
using tarn::vyxpn::StringList;
using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnDeviceObj;

constexpr std::size_t kCatalogueParts = 1000000;

// What the queries ask about: every device, device and package, device,
// package and speed, and every part's fields, of the largest family; and
// part names across all families, known and unknown.
struct QuerySubjects {
    TarnDeviceMngr* mngr = nullptr;
    std::string pm;
    std::size_t familyParts = 0;
    StringList devices;
    std::vector<std::pair<std::string, std::string>> packages;
    std::vector<std::tuple<std::string, std::string, std::string>> speeds;
    std::vector<std::tuple<std::string, std::string, std::string, std::string>> fields;
    StringList names;
};

QuerySubjects& loadSubjects() {
    static QuerySubjects s = [] {
        QuerySubjects q;
        const BenchCatalogue& catalogue = benchCatalogue(kCatalogueParts);
        useCatalogue(catalogue);
        q.mngr = TarnDeviceMngr::getInstance();
        q.pm = catalogue.info.largestPm;
        const auto& parts = q.mngr->getFamilyFile(q.pm)->m_genericDevices;
        q.familyParts = parts.m_datas.size();
        q.mngr->getDevices(q.pm, q.devices, true, false);
        for (const std::string& device : q.devices) {
            StringList packages;
            q.mngr->getPackages(q.pm, device, packages, true, false);
            for (const std::string& package : packages) {
                q.packages.emplace_back(device, package);
                StringList speeds;
                q.mngr->getSpeeds(q.pm, device, package, speeds, true, false);
                for (const std::string& speed : speeds)
                    q.speeds.emplace_back(device, package, speed);
            }
        }
        const int device = parts.columnOf("Device"), package = parts.columnOf("Package"),
                  speed = parts.columnOf("Speed"), condition = parts.columnOf("Condition");
        for (const auto& [name, row] : parts.m_datas)
            q.fields.emplace_back(row[device], row[package], row[speed], row[condition]);
        q.names = catalogue.info.sampleParts;
        q.names.insert(q.names.end(), catalogue.info.sharedParts.begin(),
                       catalogue.info.sharedParts.end());
        // Misses cost a lookup in every family when nothing is indexed.
        for (int i = 0; i < 100; ++i)
            q.names.push_back("QX" + std::to_string(i) + "-5BG100C");
        return q;
    }();
    return s;
}

// The start-up benchmarks drop the manager; load the catalogue again then.
const QuerySubjects& subjects() {
    QuerySubjects& s = loadSubjects();
    if (TarnDeviceMngr::m_pMngr != s.mngr) {
        useCatalogue(benchCatalogue(kCatalogueParts));
        s.mngr = TarnDeviceMngr::getInstance();
    }
    return s;
}

bool withObsolete(const benchmark::State& state) {
    return state.range(0) & 1;
}
bool ascOnly(const benchmark::State& state) {
    return state.range(0) & 2;
}

void labelFilters(benchmark::State& state, const QuerySubjects& s) {
    state.SetLabel(std::string(withObsolete(state) ? "with obsolete" : "current") +
                   (ascOnly(state) ? ", ASC only" : "") + ", family of " +
                   std::to_string(s.familyParts) + " parts");
}

// Each list query cycles through every subject of its kind; the first round
// (index building) is paid before timing starts, as a dialog pays it once.
template <typename Subjects, typename Query>
void cycle(benchmark::State& state, const Subjects& subjects, Query query) {
    StringList out;
    for (const auto& subject : subjects)
        query(subject, out);
    std::size_t next = 0;
    for (auto _ : state) {
        query(subjects[next], out);
        benchmark::DoNotOptimize(out.data());
        if (++next == subjects.size())
            next = 0;
    }
}

void BM_GetDevices(benchmark::State& state) {
    const QuerySubjects& s = subjects();
    const std::vector<int> once{0};
    cycle(state, once, [&](int, StringList& out) {
        s.mngr->getDevices(s.pm, out, withObsolete(state), ascOnly(state));
    });
    labelFilters(state, s);
}

void BM_GetPackages(benchmark::State& state) {
    const QuerySubjects& s = subjects();
    cycle(state, s.devices, [&](const std::string& device, StringList& out) {
        s.mngr->getPackages(s.pm, device, out, withObsolete(state), ascOnly(state));
    });
    labelFilters(state, s);
}

void BM_GetSpeeds(benchmark::State& state) {
    const QuerySubjects& s = subjects();
    cycle(state, s.packages, [&](const auto& subject, StringList& out) {
        s.mngr->getSpeeds(s.pm, subject.first, subject.second, out, withObsolete(state),
                          ascOnly(state));
    });
    labelFilters(state, s);
}

void BM_GetOperations(benchmark::State& state) {
    const QuerySubjects& s = subjects();
    cycle(state, s.speeds, [&](const auto& subject, StringList& out) {
        s.mngr->getOperations(s.pm, std::get<0>(subject), std::get<1>(subject),
                              std::get<2>(subject), out, withObsolete(state), ascOnly(state));
    });
    labelFilters(state, s);
}

void BM_GetAllPartsByPM(benchmark::State& state) {
    const QuerySubjects& s = subjects();
    const std::vector<int> once{0};
    cycle(state, once, [&](int, StringList& out) {
        s.mngr->getAllPartsByPM(s.pm, out, withObsolete(state), ascOnly(state));
    });
    labelFilters(state, s);
}

void BM_GetAllFamilies(benchmark::State& state) {
    const QuerySubjects& s = subjects();
    const std::vector<int> once{0};
    cycle(state, once, [&](int, StringList& out) {
        out.clear();
        s.mngr->getAllFamilies(out, withObsolete(state), ascOnly(state));
    });
    labelFilters(state, s);
}

void allFilters(benchmark::internal::Benchmark* bench) {
    bench->ArgName("filters")->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(BM_GetDevices)->Apply(allFilters);
BENCHMARK(BM_GetPackages)->Apply(allFilters);
BENCHMARK(BM_GetSpeeds)->Apply(allFilters);
BENCHMARK(BM_GetOperations)->Apply(allFilters);
BENCHMARK(BM_GetAllPartsByPM)->Apply(allFilters)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GetAllFamilies)->Apply(allFilters)->Unit(benchmark::kMillisecond);

void BM_GetPartName(benchmark::State& state) {
    const QuerySubjects& s = subjects();
    std::string name;
    std::size_t next = 0;
    for (auto _ : state) {
        const auto& [device, package, speed, condition] = s.fields[next];
        name = s.mngr->getPartName(s.pm, device, package, speed, condition);
        benchmark::DoNotOptimize(name.data());
        next = (next + 7919) % s.fields.size();
    }
}
BENCHMARK(BM_GetPartName)->Unit(benchmark::kMicrosecond);

// Name lookups cycle through known parts of every family, names held by two
// families and unknown names.
template <typename Query>
void overNames(benchmark::State& state, Query query) {
    const QuerySubjects& s = subjects();
    for (const std::string& name : s.names)
        query(s, name);
    std::size_t next = 0;
    for (auto _ : state) {
        query(s, s.names[next]);
        if (++next == s.names.size())
            next = 0;
    }
}

void BM_GetNameByPart(benchmark::State& state) {
    std::string pm, device, package, speed, condition;
    overNames(state, [&](const QuerySubjects& s, const std::string& name) {
        benchmark::DoNotOptimize(
            s.mngr->getNameByPart(name, pm, device, package, speed, condition));
    });
}

void BM_Exists(benchmark::State& state) {
    overNames(state, [](const QuerySubjects& s, const std::string& name) {
        benchmark::DoNotOptimize(s.mngr->exists(name));
    });
}

void BM_GetItemValue(benchmark::State& state) {
    overNames(state, [](const QuerySubjects& s, const std::string& name) {
        std::string value = s.mngr->getItemValue("ASCMaxNum", name, "0");
        benchmark::DoNotOptimize(value.data());
    });
}

void BM_IsValid(benchmark::State& state) {
    overNames(state, [](const QuerySubjects& s, const std::string& name) {
        TarnDeviceObj device(name);
        device.m_ascList = {"ASC10", "ASC20"};
        std::string message;
        benchmark::DoNotOptimize(s.mngr->isValid(device, message));
    });
}

void BM_CalcDeviceData(benchmark::State& state) {
    overNames(state, [](const QuerySubjects& s, const std::string& name) {
        KeyValueReport report;
        benchmark::DoNotOptimize(s.mngr->calcDeviceData(name, report));
    });
}

BENCHMARK(BM_GetNameByPart)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Exists)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_GetItemValue)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_IsValid)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_CalcDeviceData)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace devctrl_bench
