#pragma once

namespace numbrela::testing {

// The program finds its catalogue in the folder "Recursos" beside the executable, and the shopping activity and its
// editor write into it. A test of the whole program therefore runs in an installation of its own: a folder with a link
// to the executable, gone when the test ends.

// Runs `program` with these arguments in an installation of its own, and returns its exit status; 1 when it was killed.
// To be called by main() before anything else; the executable is started once more for it.
int RunInstalled(int argc, char** argv, int (*program)(int argc, char** argv));

// Gives the installation that we run in the catalogue that a new installation starts with.
void InstallCatalogue();

} // namespace numbrela::testing
