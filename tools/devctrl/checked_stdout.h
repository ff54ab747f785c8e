// SPDX-License-Identifier: MIT
#pragma once
// Standard output that remembers whether every byte reached it. A command's
// answer cut short by a full disk must not end in a success status, so the
// tool writes through this buffer and asks it at the end.

#include <streambuf>
#include <string>

namespace devctrl_tool {

class CheckedStdout : public std::streambuf {
  public:
    CheckedStdout();
    ~CheckedStdout() override;
    CheckedStdout(const CheckedStdout&) = delete;
    CheckedStdout& operator=(const CheckedStdout&) = delete;

    // Writes what is buffered and closes file descriptor 1, so that an error
    // the system reports only on close is seen too. Returns the reason of the
    // first failed write or close, or "" when everything was written.
    std::string finish();

  protected:
    int_type overflow(int_type c) override;
    int sync() override;
    std::streamsize xsputn(const char* data, std::streamsize size) override;

  private:
    bool drain();
    bool writeAll(const char* data, std::size_t size);

    char m_buffer[1 << 16];
    int m_errno = 0;  // the first failure; later output is dropped
};

// Lets the default action of SIGPIPE end the process: a reader that stops
// early (`devctrl parts zr1 | head`) ends the tool quietly, with the
// status a shell reports for a broken pipe.
void restoreBrokenPipeDefault();

}  // namespace devctrl_tool
