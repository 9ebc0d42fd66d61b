#include "tests/program/Installation.h"

#include "activities/shopping/catalogue/CatalogueSource.h"

#include <spawn.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace numbrela::testing {

namespace {

namespace fs = std::filesystem;

constexpr const char* folderPrefix = "installed-";

fs::path executable()
{
    return fs::read_symlink("/proc/self/exe");
}

bool isInstalled()
{
    return executable().parent_path().filename().string().rfind(folderPrefix, 0) == 0;
}

// Beside the executable, because a link does not leave its file system.
fs::path makeFolder()
{
    std::string name = (executable().parent_path() / folderPrefix).string() + "XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("cannot make a folder like " + name);
    }
    return name;
}

// The process that runs in the folder. What interrupts us is passed on to it, so that we are still there to remove the
// folder.
volatile std::sig_atomic_t running = 0;

void passOn(int signal)
{
    ::kill(running, signal);
}

int runAndWait(const fs::path& program, char** argv)
{
    pid_t child = 0;
    if (::posix_spawn(&child, program.c_str(), nullptr, nullptr, argv, environ) != 0) {
        throw std::runtime_error("cannot start " + program.string());
    }
    running = child;
    for (const int interruption : { SIGINT, SIGTERM, SIGHUP }) {
        std::signal(interruption, &passOn);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : EXIT_FAILURE;
}

} // namespace

int RunInstalled(int argc, char** argv, int (*program)(int argc, char** argv))
{
    if (isInstalled()) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL); // nobody waits for us then
        return program(argc, argv);
    }
    const fs::path folder = makeFolder();
    fs::create_hard_link(executable(), folder / executable().filename());
    const int status = runAndWait(folder / executable().filename(), argv);
    fs::remove_all(folder);
    return status;
}

void InstallCatalogue()
{
    const fs::path resources = executable().parent_path() / "Recursos";
    fs::remove_all(resources);
    fs::create_directory(resources);
    std::ifstream source(SHOPPING_CATALOGUE_SOURCE);
    SaveCatalogue(resources / "productos.dat", ReadCatalogueSource(source));
}

} // namespace numbrela::testing
