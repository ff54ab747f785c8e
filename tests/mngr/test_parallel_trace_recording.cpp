// SPDX-License-Identifier: MIT
// Messages recorded on one thread and replayed on another reach the handlers
// as if they had been said at the replay: same texts, same order, the file
// limits of both threads, and once-only messages once.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "platform/ut_trace.h"
#include "platform/ut_trace_recording.h"

namespace {

// Every handler call while in scope, in order.
struct Heard {
    std::vector<std::string> calls;
    Heard() {
        setDiagTraceHandler([this](const char* message, const char* extra) {
            calls.push_back(std::string("trace ") + message +
                            (extra ? std::string(" | ") + extra : ""));
        });
        setGuiMsgHandler(
            [this](const char* message) { calls.push_back(std::string("gui ") + message); });
    }
    ~Heard() {
        setDiagTraceHandler(nullptr);
        setGuiMsgHandler(nullptr);
    }
};

// Runs `say` on a thread of its own, recording what it says.
template <typename Say>
TraceRecording recordedElsewhere(Say say) {
    TraceRecording recording;
    std::thread([&] {
        TraceRecorder recorder(recording);
        say();
    }).join();
    return recording;
}

// A process-unique text, so that once-only messages of one test do not meet
// those of another.
std::string unique(const std::string& text) {
    static int serial = 0;
    return text + " #" + std::to_string(++serial);
}

TEST(TraceRecording, ReplayIsWhatSayingItHereWouldBe) {
    // Each script is run once directly and once recorded elsewhere and
    // replayed; the handlers must hear the same.
    struct Script {
        const char* name;
        std::function<void()> say;
    };
    const std::vector<Script> scripts{
        {"plain texts, with and without extra, empty extra kept",
         [] {
             diagTrace("one", nullptr);
             diagTrace("two", "extra");
             diagTrace("three", "");
             ut_guimsg("...");
         }},
        {"a file limit summarising",
         [] {
             TraceFileLimit limit("f.acd");
             for (int i = 0; i < 8; ++i)
                 diagTrace(("f.acd: line " + std::to_string(i)).c_str(), nullptr);
             diagTrace("other file", nullptr);
         }},
        {"nested limits",
         [] {
             TraceFileLimit outer("a.acd");
             for (int i = 0; i < 3; ++i) {
                 TraceFileLimit inner("a.acd");
                 for (int j = 0; j < 7; ++j)
                     diagTrace("a.acd: x", nullptr);
             }
         }},
    };
    for (const Script& script : scripts) {
        std::vector<std::string> direct, replayed;
        {
            Heard heard;
            script.say();
            direct = heard.calls;
        }
        const TraceRecording recording = recordedElsewhere(script.say);
        {
            Heard heard;
            recording.replay();
            replayed = heard.calls;
        }
        EXPECT_FALSE(direct.empty()) << script.name;
        EXPECT_EQ(direct, replayed) << script.name;
    }
}

TEST(TraceRecording, NothingReachesAHandlerWhileRecording) {
    Heard heard;
    const TraceRecording recording = recordedElsewhere([] {
        diagTrace("quiet", nullptr);
        ut_guimsg("quiet");
    });
    EXPECT_TRUE(heard.calls.empty());
    EXPECT_FALSE(recording.empty());
}

TEST(TraceRecording, LimitsOfTheReplayingThreadApplyOnTop) {
    Heard heard;
    TraceFileLimit here("g.acd");
    // Two recordings of three traces each: the limit here passes five.
    for (int round = 0; round < 2; ++round)
        recordedElsewhere([] {
            for (int i = 0; i < 3; ++i)
                diagTrace("g.acd: bad", nullptr);
        }).replay();
    EXPECT_EQ(heard.calls.size(), 5u);
}

TEST(TraceRecording, OnceOnlyTextsAreSettledInReplayOrder) {
    const std::string text = unique("cannot read shared.acd");
    Heard heard;
    // Both say it; the one replayed first says it, whichever recorded first.
    const TraceRecording second = recordedElsewhere([&] {
        diagTraceOnce(text.c_str());
        diagTrace("second", nullptr);
    });
    const TraceRecording first = recordedElsewhere([&] {
        diagTrace("first", nullptr);
        diagTraceOnce(text.c_str());
    });
    first.replay();
    second.replay();
    EXPECT_EQ(heard.calls,
              (std::vector<std::string>{"trace first", "trace " + text, "trace second"}));
    // Said by now: a later recording drops it at once, and so does saying it here.
    EXPECT_TRUE(recordedElsewhere([&] { diagTraceOnce(text.c_str()); }).empty());
    diagTraceOnce(text.c_str());
    EXPECT_EQ(heard.calls.size(), 3u);
}

TEST(TraceRecording, AOnceOnlyTextHeldBackByALimitCountsAsSaid) {
    const std::string file = unique("h.acd");
    const std::string text = file + ": unreadable";
    Heard heard;
    const std::size_t previous = setTracesPerFile(1);
    const TraceRecording recording = recordedElsewhere([&] {
        TraceFileLimit limit(file);
        diagTrace((file + ": first").c_str(), nullptr);
        diagTraceOnce(text.c_str());  // held back by the limit
    });
    setTracesPerFile(previous);
    recording.replay();
    diagTraceOnce(text.c_str());
    EXPECT_EQ(heard.calls, (std::vector<std::string>{"trace " + file + ": first",
                                                     "trace ... and 1 more in " + file}));
}

TEST(TraceRecording, RecordersNestAndRestore) {
    Heard heard;
    TraceRecording outer, inner;
    {
        TraceRecorder a(outer);
        diagTrace("to outer", nullptr);
        {
            TraceRecorder b(inner);
            diagTrace("to inner", nullptr);
        }
        diagTrace("to outer again", nullptr);
    }
    diagTrace("to the handler", nullptr);
    EXPECT_EQ(heard.calls, std::vector<std::string>{"trace to the handler"});
    heard.calls.clear();
    outer.replay();
    inner.replay();
    EXPECT_EQ(heard.calls, (std::vector<std::string>{"trace to outer", "trace to outer again",
                                                     "trace to inner"}));
}

}  // namespace
