#include "tests/monkey/Keeper.h"

#include "tests/monkey/Ends.h"

#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <new>
#include <string>
#include <string_view>

namespace numbrela::testing {

namespace {

constexpr int programEnded = 3; // exit status of a process in which a run-time error has ended the program

enum class Outcome { Finished, Ended, Failed };

// Stays as long as this process.
Progress& sharedProgress()
{
    void* shared = ::mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) {
        throw std::bad_alloc();
    }
    return *new (shared) Progress {};
}

void endHang(int /*signal*/)
{
    constexpr std::string_view message = "the event does not come to its end\n";
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, message.data(), message.size());
    std::raise(SIGSEGV); // the sanitizer prints where it is
}

Outcome outcomeOf(int process)
{
    int status = 0;
    ::waitpid(process, &status, 0);
    if (WIFSIGNALED(status)) {
        std::fprintf(stderr, "killed by signal %d (%s)\n", WTERMSIG(status), ::strsignal(WTERMSIG(status)));
        return Outcome::Failed;
    }
    if (WEXITSTATUS(status) != EXIT_SUCCESS && WEXITSTATUS(status) != programEnded) {
        std::fprintf(stderr, "exit status %d\n", WEXITSTATUS(status));
        return Outcome::Failed;
    }
    return WEXITSTATUS(status) == EXIT_SUCCESS ? Outcome::Finished : Outcome::Ended;
}

Outcome runProcess(const Order& order, bool (*play)(const Order&, Progress&), Progress& progress)
{
    std::fflush(nullptr);
    const pid_t process = ::fork();
    if (process != 0) {
        return process < 0 ? Outcome::Failed : outcomeOf(process);
    }
    ::prctl(PR_SET_PDEATHSIG, SIGKILL); // otherwise the monkey would play on unwatched
    std::signal(SIGALRM, endHang);
    SayAlive();
    if (play(order, progress)) {
        std::exit(EXIT_SUCCESS); // and the sanitizer looks for what has been lost
    }
    // Qt, which is built without clean-up for exceptions, loses what it holds while an error passes through.
    std::fflush(nullptr);
    std::_Exit(programEnded);
}

} // namespace

bool KeepWatch(const Order& order, bool (*play)(const Order&, Progress&))
{
    Progress& progress = sharedProgress();
    std::map<std::string, int> ends; // how often the program has ended, by window and cause
    const auto start = std::chrono::steady_clock::now();
    Outcome outcome = Outcome::Ended;
    while (outcome == Outcome::Ended) {
        progress.EndKind.front() = '\0';
        outcome = runProcess(order, play, progress);
        const ProgramEnd end { progress.EndWindow.data(), progress.EndKind.data(), progress.EndDetail.data() };
        if (outcome == Outcome::Ended) {
            ++ends[end.Window + ": " + end.Cause()];
        }
        if (outcome == Outcome::Ended && !end.IsByDesign()) {
            std::fprintf(stderr, "ended by an error that it is not meant to end by: %s: %s: %s\n", end.Window.c_str(),
                end.Kind.c_str(), end.Detail.c_str());
            outcome = Outcome::Failed;
        }
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const auto event = static_cast<long long>(progress.Event);
    const auto eventsThere = static_cast<long long>(progress.EventsThere);
    std::printf("%-12s %lld events, %lld more elsewhere, %d openings, %.0f s\n", order.Window.Window, eventsThere,
        event - eventsThere, progress.Openings.load(), seconds);
    for (const auto& [cause, count] : ends) {
        std::printf("             ended %d times by %s\n", count, cause.c_str());
    }
    if (outcome == Outcome::Failed) {
        std::fprintf(stderr,
            "FAILED in event %lld. To repeat it: tools/monkey --seed %lld --events %lld --window %s --log\n", event,
            static_cast<long long>(order.Seed), static_cast<long long>(order.Events), order.Window.Window);
    }
    return outcome == Outcome::Finished;
}

void SayAlive()
{
    constexpr unsigned hang = 30; // seconds that no single event takes on any machine
    ::alarm(hang);
}

} // namespace numbrela::testing
