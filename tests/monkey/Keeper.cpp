#include "tests/monkey/Keeper.h"

#include "tests/monkey/Ends.h"

#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace numbrela::testing {

namespace {

constexpr int programEnded = 3; // exit status of a process in which a run-time error has ended the program
constexpr int hang = 30; // seconds that no single event takes on any machine

std::string nameOfSignal(int number)
{
    return std::string("signal ") + std::to_string(number) + " (" + ::strsignal(number) + ")";
}

} // namespace

Keeper::Keeper(const Order& order, std::function<bool(const Order&, Progress&)> play)
    : order_(order)
    , play_(std::move(play))
{
    void* shared = ::mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) {
        throw std::bad_alloc();
    }
    progress_ = new (shared) Progress {};
}

Keeper::~Keeper()
{
    ::munmap(progress_, sizeof(Progress));
}

bool Keeper::Run()
{
    const auto start = std::chrono::steady_clock::now();
    Outcome outcome = Outcome::Ended;
    while (outcome == Outcome::Ended) {
        *progress_->EndKind.data() = '\0';
        outcome = runProcess();
        if (outcome == Outcome::Ended && !countEnd()) {
            outcome = Outcome::Failed;
        }
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("%-12s %lld events, %lld more elsewhere, %d openings, %.0f s\n", order_.Window.Window,
        static_cast<long long>(progress_->EventsThere.load()),
        static_cast<long long>(progress_->Event.load() - progress_->EventsThere.load()), progress_->Openings.load(),
        seconds);
    for (const auto& [cause, count] : ends_) {
        std::printf("             ended %d times by %s\n", count, cause.c_str());
    }
    if (outcome == Outcome::Failed) {
        printHowToRepeat();
    }
    return outcome == Outcome::Finished;
}

Keeper::Outcome Keeper::runProcess()
{
    std::array<int, 2> aliveness {}; // a pipe whose other end closes when the process ends
    if (::pipe(aliveness.data()) != 0) {
        return Outcome::Failed;
    }
    std::fflush(nullptr);
    const pid_t process = ::fork();
    if (process == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL); // otherwise the monkey would play on unwatched
        ::close(aliveness[0]);
        if (play_(order_, *progress_)) {
            std::exit(EXIT_SUCCESS); // and the sanitizer looks for what has been lost
        }
        // Qt, which is built without clean-up for exceptions, loses what it holds while an error passes through.
        std::fflush(nullptr);
        std::_Exit(programEnded);
    }
    ::close(aliveness[1]);
    const Outcome outcome = watch(process, aliveness[0]);
    ::close(aliveness[0]);
    return outcome;
}

Keeper::Outcome Keeper::watch(int process, int aliveness)
{
    constexpr int second = 1000; // milliseconds
    std::int64_t event = progress_->Event;
    pollfd end { aliveness, POLLIN, 0 };
    for (int seconds = 0; ::poll(&end, 1, second) == 0;) {
        seconds = std::exchange(event, progress_->Event.load()) == progress_->Event ? seconds + 1 : 0;
        if (seconds == hang) {
            std::fprintf(stderr, "the event has not come to its end for %d s\n", hang);
            ::kill(process, SIGSEGV); // the sanitizer prints where it is
        }
    }
    int status = 0;
    ::waitpid(process, &status, 0);
    if (WIFSIGNALED(status)) {
        std::fprintf(stderr, "killed by %s\n", nameOfSignal(WTERMSIG(status)).c_str());
        return Outcome::Failed;
    }
    switch (WEXITSTATUS(status)) {
    case EXIT_SUCCESS:
        return Outcome::Finished;
    case programEnded:
        return Outcome::Ended;
    default:
        std::fprintf(stderr, "exit status %d\n", WEXITSTATUS(status));
        return Outcome::Failed;
    }
}

// Whether the program was meant to end so.
bool Keeper::countEnd()
{
    const ProgramEnd end { progress_->EndWindow.data(), progress_->EndKind.data(), progress_->EndDetail.data() };
    ++ends_[end.Window + ": " + end.Cause()];
    if (!end.IsByDesign()) {
        std::fprintf(stderr, "ended by an error that it is not meant to end by: %s: %s: %s\n", end.Window.c_str(),
            end.Kind.c_str(), end.Detail.c_str());
        return false;
    }
    return true;
}

void Keeper::printHowToRepeat() const
{
    std::fprintf(stderr,
        "FAILED in event %lld. To repeat it: tools/monkey --seed %lld --events %lld --window %s --log\n",
        static_cast<long long>(progress_->Event.load()), static_cast<long long>(order_.Seed),
        static_cast<long long>(order_.Events), order_.Window.Window);
}

} // namespace numbrela::testing
