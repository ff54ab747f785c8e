// SPDX-License-Identifier: MIT
#pragma once
// Writing a whole file without ever destroying what is there. The one writer
// behind the INI profile functions, the device-support description and the
// part data files, so that they all treat their targets alike:
//
// - A regular file is replaced through a complete new file renamed over it
//   (crash-safe: a reader or a crash sees the old file or the new one). The
//   new file is unnamed until it is complete where the file system allows
//   (O_TMPFILE), so a writer killed mid-write leaves nothing visible; where it
//   does not, a named temporary is used and the stale ones of dead writers are
//   removed by the next write.
// - A regular file with several hard links, one that another process holds
//   open, or one in a directory we may not write keeps its identity: it is
//   rewritten in place (not crash-safe, but it is what those cases need).
// - A FIFO or a character device is streamed into; any other kind of file
//   (directory, socket, block device) is refused. Such a target is never
//   replaced by a regular file.
// - A symbolic link is followed: the file it names gets the content.

#include <string>
#include <string_view>

namespace tarn::vyxpn::platform {

// Writes `content` as the whole content of `path`, creating a missing file
// with the usual mode of a new file. False with a one-line reason in `error`
// ("cannot write PATH: ...") when given.
bool writeWholeFile(const std::string& path, std::string_view content,
                    std::string* error = nullptr);

// The file a write to `path` really changes: symbolic links are followed so
// that the link stays. A path that does not resolve is used as given.
std::string resolveWriteTarget(const std::string& path);

// The directory part of `path` ("." when it has none).
std::string directoryOf(const std::string& path);

}  // namespace tarn::vyxpn::platform
