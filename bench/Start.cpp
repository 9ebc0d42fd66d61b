#include "bench/Bench.h"

#include <array>
#include <csignal>
#include <optional>
#include <string>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

// Starts the program, an empty window and one with a word in it in turn, and prints how long it took until the first
// window was painted and how much memory was held then, medians of all starts. The word shows what any program pays
// that draws text: the search for fonts. Neither program is changed for it: a plugin that Qt loads into both tells the
// moment. On an X server without a screen, see to it that the server does not start afresh whenever a program ends,
// which takes longer than what is measured: xvfb-run -s "-noreset -screen 0 1366x768x24"
// build/release/bench/bench_start

namespace numbrela::bench {

namespace {

constexpr int rounds = 40;
constexpr int mostFailures = 5;
constexpr double aimedRatio = 1.15;

// One start of one program.
struct Start {
    double Milliseconds = 0; // from before the process exists until its first window has been painted
    double Resident = 0; // MiB of memory at that moment
    double Anonymous = 0; // MiB of that which no file backs: heap, stack and written data
    double Proportional = 0; // MiB of it, each page shared with other processes counted in part; 0 where nobody tells
};

// The number after "<name>:" in the lines that the plugin sent.
double numberAfter(const std::string& lines, const std::string& name)
{
    const std::size_t found = lines.find(name + ":");
    return found == std::string::npos ? 0 : std::strtod(lines.c_str() + found + name.size() + 1, nullptr);
}

// What comes through the pipe until its other end is closed; as much of it as came, when nothing more does for long.
std::string readToEnd(int pipe)
{
    constexpr int patience = 20'000; // milliseconds
    std::string all;
    std::array<char, 4096> buffer {};
    pollfd waiting { .fd = pipe, .events = POLLIN, .revents = 0 };
    while (poll(&waiting, 1, patience) > 0) {
        const ssize_t count = read(pipe, buffer.data(), buffer.size());
        if (count <= 0) {
            break;
        }
        all.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return all;
}

Start startFrom(const std::string& told, std::chrono::steady_clock::time_point spawned)
{
    constexpr double nanoseconds = 1e-6; // in milliseconds
    constexpr double kibibytes = 1.0 / 1024; // in mebibytes
    // The plugin reads the same clock.
    const auto before = std::chrono::duration<double, std::milli>(spawned.time_since_epoch()).count();
    return {
        .Milliseconds = numberAfter(told, "FirstPaint") * nanoseconds - before,
        .Resident = numberAfter(told, "VmRSS") * kibibytes,
        .Anonymous = numberAfter(told, "RssAnon") * kibibytes,
        .Proportional = numberAfter(told, "Pss") * kibibytes,
    };
}

// Runs a program until its first paint. Nothing when it ended otherwise.
std::optional<Start> startOnce(const char* program)
{
    std::array<int, 2> pipeEnds {};
    if (pipe(pipeEnds.data()) != 0) {
        return std::nullopt;
    }
    setenv("QT_QPA_GENERIC_PLUGINS", ("firstpaint:" + std::to_string(pipeEnds[1])).c_str(), 1);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addclose(&actions, pipeEnds[0]);
    // The platform without a display warns of every window, which is no news here.
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    std::string name = program;
    std::array<char*, 2> arguments { name.data(), nullptr };

    pid_t process = 0;
    const auto spawned = std::chrono::steady_clock::now();
    const int failed = posix_spawn(&process, program, &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(pipeEnds[1]);
    const std::string told = failed != 0 ? std::string() : readToEnd(pipeEnds[0]);
    close(pipeEnds[0]);
    if (failed != 0) {
        return std::nullopt;
    }
    if (told.empty()) {
        kill(process, SIGKILL); // it may have a window that never gets painted
    }
    int status = -1;
    if (waitpid(process, &status, 0) != process || status != 0) {
        return std::nullopt;
    }
    return startFrom(told, spawned);
}

using Starts = std::vector<Start>;

double medianOf(const Starts& starts, double Start::*figure)
{
    std::vector<double> figures;
    for (const Start& start : starts) {
        figures.push_back(start.*figure);
    }
    return Median(figures);
}

// One of the programs that take turns.
struct Runner {
    const char* Program;
    Starts Done;
};

// Every program once, each of them first in its turn, so that whatever one leaves behind for the next is shared fairly.
// False when one of them did not come to its first paint.
bool startEachOnce(std::vector<Runner>& runners, std::size_t first)
{
    std::vector<Start> starts(runners.size());
    for (std::size_t turn = 0; turn < runners.size(); ++turn) {
        const std::size_t index = (first + turn) % runners.size();
        const std::optional<Start> start = startOnce(runners[index].Program);
        if (!start) {
            return false;
        }
        starts[index] = *start;
    }
    for (std::size_t index = 0; index < runners.size(); ++index) {
        runners[index].Done.push_back(starts[index]);
    }
    return true;
}

void print(const Starts& empty, const Starts& word, const Starts& numbrela)
{
    const auto row = [&](const char* what, const char* unit, const Starts& starts, double Start::*figure, double aim) {
        return Row { what, unit, medianOf(starts, figure), medianOf(empty, figure), aim };
    };
    Print(row("start to first paint", "ms", numbrela, &Start::Milliseconds, aimedRatio));
    Print(row("  of a window with one word in it", "ms", word, &Start::Milliseconds, 0));
    Print(row("memory resident then", "MiB", numbrela, &Start::Resident, aimedRatio));
    Print(row("  of a window with one word in it", "MiB", word, &Start::Resident, 0));
    Print(row("  of it backed by no file", "MiB", numbrela, &Start::Anonymous, 0));
    if (medianOf(numbrela, &Start::Proportional) > 0) { // an older kernel does not tell
        Print(row("  shared pages in part", "MiB", numbrela, &Start::Proportional, 0));
    }
}

void run()
{
    ChoosePlatform();
    setenv("QT_PLUGIN_PATH", PLUGIN_FOLDER, 1);

    std::vector<Runner> runners { { EMPTY_WINDOW, {} }, { WORD_WINDOW, {} }, { PROGRAM, {} } };
    int failures = 0;
    bool warm = false; // the programs have been brought from the disk into the memory
    for (std::size_t round = 0; runners.back().Done.size() < static_cast<std::size_t>(Rounds(rounds)); ++round) {
        if (!startEachOnce(runners, round % runners.size())) {
            // An X server that has no other client starts afresh when one leaves, and turns the next away meanwhile.
            if (++failures > mostFailures) {
                Complain("The programs end, or paint no window for a long time: nothing was measured.");
                return;
            }
        } else if (!warm) {
            warm = true;
            for (Runner& runner : runners) {
                runner.Done.clear();
            }
        }
    }
    print(runners[0].Done, runners[1].Done, runners[2].Done);
}

} // namespace

} // namespace numbrela::bench

int main(int argc, char** argv)
{
    if (!numbrela::bench::TakeOptions(argc, argv)) {
        return 2;
    }
    numbrela::bench::run();
    return numbrela::bench::ExitStatus();
}
