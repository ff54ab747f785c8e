// SPDX-License-Identifier: MIT
#pragma once
// One walk over a family's part table that gathers what the list queries
// would give (devices, packages, speeds, conditions) and the passing parts,
// and writes it all as one JSON object.

#include <ostream>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tarn::vyxpn {
class TarnDeviceMngr;
class TarnSDSFile;
class TarnSDSFileSection;
}  // namespace tarn::vyxpn

namespace devctrl_tool {

class FamilyWalk {
  public:
    // Parts pass the family's own filter, as in the list queries.
    FamilyWalk(const tarn::vyxpn::TarnSDSFile& file, bool withObsolete, bool ascOnly);
    // The object of one PM: family, devices, packages per device, speeds per
    // device and package, conditions per device, package and speed, and the
    // parts with their fields and custom items; every list in natural order.
    void write(std::ostream& out, const std::string& family) const;

  private:
    // Distinct values in first-seen order; sorted for output at the end.
    struct Distinct {
        std::vector<std::string> values;
        std::unordered_set<std::string> seen;
        void add(const std::string& value) {
            if (seen.insert(value).second)
                values.push_back(value);
        }
    };
    using BySpeed = std::unordered_map<std::string, Distinct>;

    void writeSpeedsOf(std::ostream& out, const std::string& device) const;
    void writeConditionsOf(std::ostream& out, const std::string& device) const;
    void writePart(std::ostream& out, const std::string& part,
                   const std::vector<std::string>& row) const;

    const tarn::vyxpn::TarnSDSFile& m_file;
    const tarn::vyxpn::TarnSDSFileSection& m_parts;
    std::vector<std::pair<const std::string*, const std::vector<std::string>*>> m_passing;
    Distinct m_devices;
    std::unordered_map<std::string, Distinct> m_packages;
    std::unordered_map<std::string, std::unordered_map<std::string, Distinct>> m_speeds;
    std::unordered_map<std::string, std::unordered_map<std::string, BySpeed>> m_conditions;
};

}  // namespace devctrl_tool
