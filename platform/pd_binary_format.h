// SPDX-License-Identifier: MIT
#pragma once
// The binary form of part data, version 1. Integers in the header are
// little-endian; everything in the payload is an unsigned LEB128 varint of at
// most 32 bits.
//
//   offset  size  content
//        0     8  magic: 89 'P' 'W' 'D' 0D 0A 1A 0A
//        8     2  version (1)
//       10     2  flags (0; any other value is refused)
//       12     4  payload size in bytes; the file ends right after the payload
//       16     4  CRC-32 (IEEE) of the payload
//       20     -  payload:
//                   string count, then each string: length, bytes
//                   section count, then each section:
//                     kind byte (0 key section, 1 table), name (string index)
//                     kind 0: entry count, then each entry: key, value
//                     kind 1: column count, then each column name;
//                             row count, then each row: cell count, cells
//
// Every count, length and index is checked against what is left of the
// payload and against the string count, so a damaged file is refused instead
// of being read past its end, and no container is sized beyond what the
// remaining bytes could fill. The magic's CR LF and ^Z catch files mangled by
// a text-mode transfer; the CRC catches flipped bits.

#include <cstddef>
#include <cstdint>
#include <string>

class PD_DATA;

constexpr std::size_t PD_BIN_MAGIC_SIZE = 8;
extern const unsigned char PD_BIN_MAGIC[PD_BIN_MAGIC_SIZE];
constexpr std::uint16_t PD_BIN_VERSION = 1;
constexpr std::size_t PD_BIN_HEADER_SIZE = 20;
// Files larger than this are refused before they are read.
constexpr std::size_t PD_BIN_MAX_FILE_SIZE = std::size_t(1) << 30;

// CRC-32 as used by zip and PNG.
std::uint32_t PD_Crc32(const unsigned char* bytes, std::size_t size);

// Encodes `data` (strings written once each, in order of first use, so equal
// data give equal bytes). False only when the data exceed the format's 32-bit
// limits.
bool PD_EncodeBinary(const PD_DATA& data, std::string& bytes);
// Decodes into `data` (emptied first, and left empty on failure). `error`, when
// given, receives a one-line reason on failure.
bool PD_DecodeBinary(const unsigned char* bytes, std::size_t size, PD_DATA& data,
                     std::string* error = nullptr);

// Writes the binary form to `path` with the file writer (a complete file or
// none); false when encoding or writing fails.
bool PD_SaveBinFile(const PD_DATA& data, const char* path);
