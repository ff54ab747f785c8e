// SPDX-License-Identifier: MIT
// Runs one command N times, each in a fresh child process, and prints what a
// user measures of it: wall time, CPU time (user + system) and peak resident
// size, as median, least and most over the runs, on one line:
//
//   wall_med wall_min wall_max cpu_med cpu_min cpu_max rss_med rss_min rss_max
//
// (seconds, and megabytes of 10^6 bytes). The child's standard output goes to
// FILE, its standard error to FILE.stderr; it fails (exit 1) when a child ends with another status
// than the one expected or, unless --empty-ok, prints nothing.
//
//   fresh_run [--runs N] [--status S] [--empty-ok] --out FILE -- PROGRAM ARGS...

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

struct Options {
    int runs = 3;
    int status = 0;
    bool emptyOk = false;
    std::string out;
    std::vector<char*> command;
};

struct Run {
    double wall = 0;  // s
    double cpu = 0;   // s
    double rss = 0;   // MB
};

bool parse(int argc, char** argv, Options& options) {
    int i = 1;
    for (; i < argc && std::strcmp(argv[i], "--") != 0; ++i) {
        const std::string arg = argv[i];
        if (arg == "--empty-ok")
            options.emptyOk = true;
        else if (arg == "--runs" && i + 1 < argc)
            options.runs = std::atoi(argv[++i]);
        else if (arg == "--status" && i + 1 < argc)
            options.status = std::atoi(argv[++i]);
        else if (arg == "--out" && i + 1 < argc)
            options.out = argv[++i];
        else
            return false;
    }
    for (++i; i < argc; ++i)
        options.command.push_back(argv[i]);
    options.command.push_back(nullptr);
    return options.runs > 0 && !options.out.empty() && options.command.size() > 1;
}

// Where a child's standard error goes: shown only when the child fails, so
// that the expected messages of a run (a family switched off, a name not
// found) do not break up the table.
std::string errorFile(const Options& options) {
    return options.out + ".stderr";
}

void showErrors(const Options& options) {
    std::ifstream errors(errorFile(options));
    std::cerr << errors.rdbuf();
}

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

// One run; false (with a message) when the child failed.
bool runOnce(const Options& options, Run& run) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child < 0) {
        std::perror("fresh_run: fork");
        return false;
    }
    if (child == 0) {
        const int in = open("/dev/null", O_RDONLY);
        const int out = open(options.out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int err = open(errorFile(options).c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (in < 0 || out < 0 || err < 0 || dup2(in, 0) < 0 || dup2(out, 1) < 0 ||
            dup2(err, 2) < 0) {
            std::perror(("fresh_run: " + options.out).c_str());
            _exit(126);
        }
        execvp(options.command[0], options.command.data());
        std::perror("fresh_run: exec");
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child) {
        std::perror("fresh_run: wait4");
        return false;
    }
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
    run.wall = wall.count();
    run.cpu = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    run.rss = static_cast<double>(usage.ru_maxrss) * 1024 / 1e6;  // ru_maxrss is in KiB

    if (!WIFEXITED(status) || WEXITSTATUS(status) != options.status) {
        showErrors(options);
        std::fprintf(stderr, "fresh_run: %s ended with %s %d, expected status %d\n",
                     options.command[0], WIFEXITED(status) ? "status" : "signal",
                     WIFEXITED(status) ? WEXITSTATUS(status) : WTERMSIG(status), options.status);
        return false;
    }
    struct stat written {};
    if (!options.emptyOk && (stat(options.out.c_str(), &written) != 0 || written.st_size == 0)) {
        showErrors(options);
        std::fprintf(stderr, "fresh_run: %s printed nothing\n", options.command[0]);
        return false;
    }
    return true;
}

// Median (the upper one of an even count), least and most.
void printSpread(std::vector<double> values, const char* separator) {
    std::sort(values.begin(), values.end());
    std::printf("%.3f %.3f %.3f%s", values[values.size() / 2], values.front(), values.back(),
                separator);
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (!parse(argc, argv, options)) {
        std::fprintf(stderr,
                     "usage: fresh_run [--runs N] [--status S] [--empty-ok] --out FILE -- "
                     "PROGRAM ARGS...\n");
        return 2;
    }
    std::vector<double> wall, cpu, rss;
    for (int i = 0; i < options.runs; ++i) {
        Run run;
        if (!runOnce(options, run))
            return 1;
        wall.push_back(run.wall);
        cpu.push_back(run.cpu);
        rss.push_back(run.rss);
    }
    printSpread(wall, " ");
    printSpread(cpu, " ");
    printSpread(rss, "\n");
    return 0;
}
