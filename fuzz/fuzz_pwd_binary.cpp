// The binary form of part data: the decoder on raw bytes, and again with the
// header's size and checksum made to match, so that mutations reach the
// payload instead of stopping at the checksum. Whatever decodes must encode to
// bytes that decode to the same data, and the family's library reader must
// take the file as a PM's ".pwd".

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "devctrl/sds/sds_file.h"
#include "platform/pd_binary_format.h"
#include "platform/pd_data.h"
#include "support/fuzz_support.h"
#include "support/pwd_fixture.h"

namespace {

void putLittleEndian32(std::string& bytes, std::size_t offset, std::uint32_t value) {
    for (int i = 0; i < 4; ++i)
        bytes[offset + i] = static_cast<char>((value >> (8 * i)) & 0xff);
}

// The input with a correct payload size and CRC in its header.
std::string withConsistentHeader(std::string bytes) {
    if (bytes.size() < PD_BIN_HEADER_SIZE)
        return bytes;
    std::size_t payload = bytes.size() - PD_BIN_HEADER_SIZE;
    putLittleEndian32(bytes, 12, static_cast<std::uint32_t>(payload));
    putLittleEndian32(
        bytes, 16,
        PD_Crc32(reinterpret_cast<const unsigned char*>(bytes.data()) + PD_BIN_HEADER_SIZE,
                 payload));
    return bytes;
}

bool decode(const std::string& bytes, PD_DATA& data) {
    std::string error;
    bool decoded = PD_DecodeBinary(reinterpret_cast<const unsigned char*>(bytes.data()),
                                   bytes.size(), data, &error);
    // A refusal says why, and leaves nothing behind.
    if (!decoded && (error.empty() || data.GetNumOfSections() != 0))
        std::abort();
    return decoded;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    devctrl_fuzz::silenceTraces();
    setenv("DEVCTRL_DATA_DIR", (devctrl_fuzz::scratchDir() + "/data").c_str(), 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string raw(reinterpret_cast<const char*>(data), size);
    PD_DATA decoded;
    if (decode(raw, decoded))
        devctrl_fuzz::checkBinaryRoundTrip(decoded);

    std::string consistent = withConsistentHeader(raw);
    PD_DATA payloadDecoded;
    if (decode(consistent, payloadDecoded))
        devctrl_fuzz::checkBinaryRoundTrip(payloadDecoded);

    devctrl_fuzz::writeScratchFile("data/zr9f00/zr9f00.pwd", consistent);
    tarn::vyxpn::TarnSDSFile family("zr9f00", nullptr);
    devctrl_fuzz::fillPackageSection(family);
    family.loadPWD_Bin("zr9f00", nullptr, devctrl_fuzz::requestedPartDataColumns());
    volatile std::size_t sink = devctrl_fuzz::touchPackageSection(family);
    (void)sink;
    return 0;
}
