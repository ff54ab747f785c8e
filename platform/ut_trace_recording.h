// SPDX-License-Identifier: MIT
#pragma once
// Messages a thread keeps for another thread to deliver. Work done on a
// helper thread must never call a host's handlers there: its traces and
// progress messages are recorded and later replayed, in order, by the thread
// the host called. Internal to the library.

#include <string>
#include <vector>

// Traces `message` unless this process traced the very same text through
// here before: a file that cannot be read is said once, however many
// readers try it.
void diagTraceOnce(const char* message);

// What one thread said while a TraceRecorder was alive on it.
class TraceRecording {
  public:
    // Delivers every message, in the order said, as if said now on this
    // thread: the file limits open here apply on top of those that were open
    // where the messages were said, and a message said once is dropped if it
    // was said by then.
    void replay() const;
    bool empty() const { return m_messages.empty(); }

    enum class Kind {
        Trace,        // diagTrace
        Once,         // diagTraceOnce, passed by the file limits
        OnceLimited,  // diagTraceOnce, held back by a file limit: said, not shown
        GuiMsg,       // ut_guimsg
    };
    // Used by the trace functions while a recorder is alive.
    void add(Kind kind, const char* text, const char* extra);

  private:
    struct Message {
        Kind kind;
        std::string text;
        bool hasExtra;
        std::string extra;
    };
    std::vector<Message> m_messages;
};

// While alive, diagTrace, diagTraceOnce and ut_guimsg on this thread add to
// `into` instead of reaching the handlers. The file limits open on this
// thread still count and summarise as usual; their summaries are recorded
// too. Recorders nest; the innermost one records.
class TraceRecorder {
  public:
    explicit TraceRecorder(TraceRecording& into);
    ~TraceRecorder();
    TraceRecorder(const TraceRecorder&) = delete;
    TraceRecorder& operator=(const TraceRecorder&) = delete;

  private:
    TraceRecording* m_outer;
};
