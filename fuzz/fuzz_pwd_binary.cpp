// SPDX-License-Identifier: MIT
// The binary form of part data: the decoder on raw bytes, and again with the
// header's size and checksum made to match, so that mutations reach the
// payload instead of stopping at the checksum. Whatever decodes must encode to
// bytes that decode to the same data, and the family's library reader must
// take the file as a PM's ".pwd".

#include <cstdlib>

#include "platform/pd_binary_format.h"
#include "platform/pd_data.h"
#include "support/fuzz_support.h"

namespace {

// The input with a correct payload size and CRC in its header.
std::string withConsistentHeader(std::string bytes) {
    if (bytes.size() < PD_BIN_HEADER_SIZE)
        return bytes;
    const auto* payload = reinterpret_cast<const unsigned char*>(bytes.data()) + PD_BIN_HEADER_SIZE;
    const std::size_t size = bytes.size() - PD_BIN_HEADER_SIZE;
    const std::uint32_t fields[] = {static_cast<std::uint32_t>(size), PD_Crc32(payload, size)};
    for (int field = 0; field < 2; ++field)
        for (int i = 0; i < 4; ++i)  // little-endian, at offsets 12 and 16
            bytes[12 + 4 * field + i] = static_cast<char>((fields[field] >> (8 * i)) & 0xff);
    return bytes;
}

void decodeAndRoundTrip(const std::string& bytes) {
    PD_DATA data;
    std::string error;
    if (PD_DecodeBinary(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), data,
                        &error))
        devctrl_fuzz::checkBinaryRoundTrip(data);
    else if (error.empty() || data.GetNumOfSections() != 0)
        std::abort();  // a refusal says why, and leaves nothing behind
}

}  // namespace

const char* const devctrl_fuzz::kDataDir = "data";

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string raw(devctrl_fuzz::asText(data, size));
    decodeAndRoundTrip(raw);
    std::string consistent = withConsistentHeader(raw);
    decodeAndRoundTrip(consistent);
    devctrl_fuzz::readIntoFamilies(consistent, true);
    return 0;
}
