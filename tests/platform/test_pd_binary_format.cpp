// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "platform/pd_binary_format.h"
#include "platform/pd_data.h"
#include "platform/pd_text_writer.h"

namespace {

const char* const kSample =
    "[[Device Info]]\n"
    "Vendor = Tarn\n"
    "Format = LUT, FF, , EBR\n"
    "ZR4_QF48 = 640, 640, , 2\n"
    "ZR4_BG100 = 640, 640\n"
    "ZR12_BG100 = 1280, 1280, x, 4, extra\n"
    "[[Second]]\n"
    "Format = RAM\n"
    "ZR4_QF48 = 8\n";

bool decode(const std::string& bytes, PD_DATA& data, std::string* why = nullptr) {
    return PD_DecodeBinary(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), data,
                           why);
}

std::string encodeText(const std::string& text) {
    PD_DATA data;
    EXPECT_TRUE(data.LoadTxtString(text));
    std::string bytes;
    EXPECT_TRUE(PD_EncodeBinary(data, bytes));
    return bytes;
}

// A header for `payload` with the right size and checksum.
std::string withHeader(const std::string& payload) {
    std::string bytes(reinterpret_cast<const char*>(PD_BIN_MAGIC), PD_BIN_MAGIC_SIZE);
    auto put = [&bytes](std::uint32_t value, int count) {
        for (int i = 0; i < count; ++i)
            bytes.push_back(static_cast<char>(value >> (8 * i)));
    };
    put(PD_BIN_VERSION, 2);
    put(0, 2);
    put(static_cast<std::uint32_t>(payload.size()), 4);
    put(PD_Crc32(reinterpret_cast<const unsigned char*>(payload.data()), payload.size()), 4);
    return bytes + payload;
}

}  // namespace

TEST(PdBinaryFormat, EncodeDecodeKeepsEverything) {
    PD_DATA text, binary;
    ASSERT_TRUE(text.LoadTxtString(kSample));
    const std::string bytes = encodeText(kSample);
    ASSERT_TRUE(decode(bytes, binary));
    std::string before, after, again;
    ASSERT_TRUE(PD_FormatText(text, before) && PD_FormatText(binary, after));
    EXPECT_EQ(after, before);
    // The same data always give the same bytes; repeated strings are stored once.
    ASSERT_TRUE(PD_EncodeBinary(binary, again));
    EXPECT_EQ(again, bytes);
    EXPECT_EQ(bytes.find("640"), bytes.rfind("640"));
}

TEST(PdBinaryFormat, ExtraByteAndEveryBitFlipAreDetected) {
    std::string bytes = encodeText(kSample);
    PD_DATA longer;
    EXPECT_FALSE(decode(bytes + '\0', longer));  // one byte too many
    for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
        std::string damaged = bytes;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << (bit % 8)));
        PD_DATA data;
        EXPECT_FALSE(decode(damaged, data)) << "bit " << bit;
    }
}

// Damage behind a valid checksum: the structure checks alone must hold.
TEST(PdBinaryFormat, DamagedPayloadWithValidChecksumFailsCleanly) {
    // Counts that claim far more than the payload holds are refused before
    // anything is reserved for them; then a string index past the string
    // table, an unknown kind, a length past the end and a varint longer than
    // 32 bits. The smallest valid file has no strings and no sections.
    const std::pair<std::string, const char*> payloads[] = {
        {std::string("\xff\xff\xff\xff\x0f", 5), "bad string table"},
        {std::string("\x00\xff\xff\xff\xff\x07", 6), "bad section count"},
        {std::string("\x01\x01\x41\x01\x00\x05\x00", 7), ""},  // 0x41 is "A"
        {std::string("\x01\x01\x41\x01\x07\x00\x00", 7), ""},
        {std::string("\x01\x09\x41", 3), ""},
        {std::string("\x80\x80\x80\x80\x80\x01", 6), ""},
    };
    for (const auto& [payload, reason] : payloads) {
        PD_DATA data;
        std::string why;
        EXPECT_FALSE(decode(withHeader(payload), data, &why)) << reason;
        EXPECT_EQ(*reason ? why : std::string(), reason);
    }
    PD_DATA data;
    EXPECT_TRUE(decode(withHeader(std::string("\x00\x00", 2)), data));
    std::string why, version = encodeText(kSample);
    version[8] = 2;
    EXPECT_FALSE(decode(version, data, &why));
    EXPECT_EQ(why, "unknown version 2");
    EXPECT_FALSE(PD_DecodeBinary(nullptr, 0, data));
}
