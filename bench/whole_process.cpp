// Times two commands as whole processes, in turn, by the operating system's own accounting of each finished run. With
// --window their windows are waited for and closed at once: the wall time is that from the start to the window. With
// --before a shell does its command before every run, untimed.
// Usage: whole_process [--window] [--before SHELL COMMAND] RUNS COMMAND -- OTHER COMMAND

#include "window_watch.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <vector>

extern char** environ;

namespace {

struct Run {
    double wall = 0;    // milliseconds
    double cpu = 0;     // milliseconds
    double memory = 0;  // MiB at the peak
};

double milliseconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

using Milliseconds = std::chrono::duration<double, std::milli>;

Run measure(char** command, gatehouse::WindowWatch* windows, const char* before) {
    if (before && std::system(before) != 0) {
        std::fprintf(stderr, "%s did not end well\n", before);
        std::exit(2);
    }
    posix_spawn_file_actions_t quiet;
    posix_spawn_file_actions_init(&quiet);
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&quiet, stream, "/dev/null", O_WRONLY, 0);
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    if (posix_spawnp(&child, command[0], &quiet, nullptr, command, environ) != 0) {
        std::fprintf(stderr, "can't start %s\n", command[0]);
        std::exit(2);
    }
    posix_spawn_file_actions_destroy(&quiet);
    Milliseconds wall{};
    if (windows) {
        windows->waitForWindow();
        wall = std::chrono::steady_clock::now() - start;
        windows->closeWindow();
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (!windows) wall = std::chrono::steady_clock::now() - start;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "%s did not end well\n", command[0]);
        std::exit(2);
    }
    return {wall.count(), milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) / 1024};
}

double median(std::vector<Run> runs, double Run::*figure) {
    std::sort(runs.begin(), runs.end(), [figure](const Run& a, const Run& b) { return a.*figure < b.*figure; });
    return runs[runs.size() / 2].*figure;
}

}  // namespace

int main(int argc, char** argv) {
    std::optional<gatehouse::WindowWatch> windows;
    const char* before = nullptr;
    const auto takeFlag = [&](const char* flag) {
        const bool there = argc > 1 && std::strcmp(argv[1], flag) == 0;
        argv += there;
        argc -= there;
        return there;
    };
    if (takeFlag("--window")) windows.emplace();
    if (takeFlag("--before") && argc > 1) {
        before = *++argv;
        --argc;
    }
    char** separator = std::find_if(argv, argv + argc, [](const char* text) { return std::strcmp(text, "--") == 0; });
    const int runs = argc > 1 ? std::atoi(argv[1]) : 0;
    if (runs < 1 || separator - argv < 3 || separator - argv > argc - 2) {
        std::fprintf(stderr,
                     "usage: whole_process [--window] [--before SHELL COMMAND] RUNS COMMAND -- OTHER COMMAND\n");
        return 2;
    }
    *separator = nullptr;
    char** commands[2] = {argv + 2, separator + 1};
    std::vector<Run> results[2];
    gatehouse::WindowWatch* const watch = windows ? &*windows : nullptr;
    for (char** command : commands) measure(command, watch, before);  // once to fill the caches
    for (int i = 0; i < runs; ++i)
        for (int which : {0, 1}) results[which].push_back(measure(commands[which], watch, before));
    const struct {
        const char* name;
        double Run::*figure;
    } rows[] = {{"wall ms", &Run::wall}, {"cpu ms", &Run::cpu}, {"peak MiB", &Run::memory}};
    std::printf("%-10s %10s %10s %8s\n", "median of", "first", "second", "ratio");
    for (const auto& row : rows) {
        const double a = median(results[0], row.figure);
        const double b = median(results[1], row.figure);
        std::printf("%-10s %10.1f %10.1f %8.2f\n", row.name, a, b, a / b);
    }
    return 0;
}
