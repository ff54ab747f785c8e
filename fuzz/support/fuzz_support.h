// SPDX-License-Identifier: MIT
#pragma once
// Shared by the fuzz targets: the one kind of exception bad data may raise by
// design, a scratch directory per process, cutting an input into parts, and a
// family object for the part data targets to merge into.

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/manager_teardown.h"

class PD_DATA;
namespace tarn::vyxpn {
class TarnDeviceMngr;
}

namespace devctrl_fuzz {

// The range errors the library lets escape on purpose: a DataError (a
// negative package index, an empty condition of a listed part, located in
// its file), or a checked vector or string access (a row shorter than its
// column list). Every other exception, even another std::out_of_range, is a
// finding.
bool isDesignedRangeError(const std::out_of_range& error);

// Runs `body`, swallowing designed range errors; anything else escapes and
// ends the run with a crash report.
template <typename Body>
void expectOnlyDesignedRangeErrors(Body&& body) {
    try {
        body();
    } catch (const std::out_of_range& error) {
        if (!isDesignedRangeError(error))
            throw;
    }
}

// Each target names the data directory it points the library at (relative
// paths lie in scratchDir(); null for none). The shared LLVMFuzzerInitialize
// sets it, with a settings file of its own, and drops every trace line: the
// targets feed broken files on purpose.
extern const char* const kDataDir;

inline std::string_view asText(const std::uint8_t* data, std::size_t size) {
    return std::string_view(reinterpret_cast<const char*>(data), size);
}

// A directory under the system temp dir for this process, removed at exit.
const std::string& scratchDir();
// Writes `bytes` to scratchDir()/relative (directories created); the path.
std::string writeScratchFile(const std::string& relative, std::string_view bytes);
void removeScratchFile(const std::string& relative);

// The input cut at lines that hold exactly `separator`; at least one part.
std::vector<std::string_view> splitAtSeparatorLines(std::string_view text,
                                                    std::string_view separator);
// The input cut at newlines, at most `limit` pieces (the last keeps the rest).
std::vector<std::string> splitLines(std::string_view text, std::size_t limit);

// The queries a dialog makes on one part, validated and reported with
// `linked` as its linked ASC chips.
void exercisePart(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& part,
                  const std::vector<std::string>& linked);

// The same teardown the unit tests use.
using devctrl_test::dropManager;

// The resource columns the part data targets ask the readers for.
inline const std::vector<std::string> kPartDataColumns{"LUT", "FF", "EBR", "pins"};

// Reads `bytes` with a family's self-contained text reader (loadPWD), or, when
// `asPmFile`, with its library reader (loadPWD_Bin) as the PM's ".pwd" under
// the data directory; each time into a package section of two columns and
// three rows (one shorter than the column list) and into an empty one, whose
// every cell is then read as the queries would.
void readIntoFamilies(std::string_view bytes, bool asPmFile,
                      const std::vector<std::string>& requested = kPartDataColumns);

// Aborts unless data that encode to the binary form decode back to data that
// encode to the same bytes.
void checkBinaryRoundTrip(const PD_DATA& data);

}  // namespace devctrl_fuzz
