#include "pwd_fixture.h"

#include <cstdlib>

#include "platform/pd_binary_format.h"
#include "platform/pd_data.h"

namespace devctrl_fuzz {

const std::vector<std::string>& requestedPartDataColumns() {
    static const std::vector<std::string> columns{"LUT", "FF", "EBR", "pins"};
    return columns;
}

void fillPackageSection(tarn::vyxpn::TarnSDSFile& family) {
    family.m_packageSection.clear();
    family.m_packageSection.m_items = {"PKGIndex", "Status"};
    family.m_packageSection.m_datas["ZR4_QF48"] = {"0", "P"};
    family.m_packageSection.m_datas["ZR4_BG100"] = {"1"};
    family.m_packageSection.m_datas["ZR12_BG100"] = {"0", "E"};
}

std::size_t touchPackageSection(const tarn::vyxpn::TarnSDSFile& family) {
    std::size_t bytes = 0;
    for (const std::string& item : family.m_packageSection.m_items)
        bytes += item.size();
    for (const auto& [key, row] : family.m_packageSection.m_datas)
        for (const std::string& cell : row)
            bytes += key.size() + cell.size();
    return bytes;
}

void checkBinaryRoundTrip(const PD_DATA& data) {
    std::string bytes;
    if (!PD_EncodeBinary(data, bytes))
        return;
    PD_DATA decoded;
    std::string error;
    if (!PD_DecodeBinary(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(),
                         decoded, &error))
        std::abort();
    std::string bytesAgain;
    if (!PD_EncodeBinary(decoded, bytesAgain) || bytesAgain != bytes)
        std::abort();
}

}  // namespace devctrl_fuzz
