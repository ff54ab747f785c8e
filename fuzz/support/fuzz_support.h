#pragma once
// Shared by the fuzz targets: the one kind of exception bad data may raise by
// design, a scratch directory per process, and cutting an input into parts.

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace devctrl_fuzz {

// The range errors the library lets escape on purpose: a row shorter than its
// column list, a negative package index, an empty condition of a listed part.
// They come from a checked vector or string access; every other exception,
// even another std::out_of_range, is a finding.
bool isDesignedRangeError(const std::out_of_range& error);

// Runs `body`. A designed range error is swallowed; anything else escapes,
// which ends the fuzzing run with a crash report.
template <typename Body>
void expectOnlyDesignedRangeErrors(Body&& body) {
    try {
        body();
    } catch (const std::out_of_range& error) {
        if (!isDesignedRangeError(error))
            throw;
    }
}

// Replaces the trace handler by one that drops every line: the targets feed
// broken files on purpose and would otherwise flood the terminal.
void silenceTraces();

// A directory under the system temp dir for this process, removed at exit.
const std::string& scratchDir();
// Writes `bytes` to scratchDir()/relative (directories created); the path.
std::string writeScratchFile(const std::string& relative, std::string_view bytes);
void removeScratchFile(const std::string& relative);

// The input cut at lines that hold exactly `separator`; always one part at
// least. Used to carry several files in one input.
std::vector<std::string_view> splitAtSeparatorLines(const std::uint8_t* data, std::size_t size,
                                                    std::string_view separator);

// The input cut at newlines, at most `limit` pieces (the last one keeps the
// rest).
std::vector<std::string> splitLines(const std::uint8_t* data, std::size_t size, std::size_t limit);

// Destroys the device manager and the part-model database, so the next
// getInstance() reads the data directory again.
void dropManager();

}  // namespace devctrl_fuzz
