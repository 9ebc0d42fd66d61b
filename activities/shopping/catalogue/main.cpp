#include "activities/shopping/catalogue/CatalogueSource.h"

#include <fstream>
#include <iostream>

// Makes the catalogue that a new installation starts with: numbrela_make_catalogue <text> <catalogue>
// A catalogue that is there is somebody's, and stays as it is.
int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: numbrela_make_catalogue <text> <catalogue>\n";
        return 2;
    }
    const std::filesystem::path catalogue = argv[2];
    if (std::filesystem::exists(catalogue)) {
        return 0;
    }
    std::ifstream text(argv[1]);
    if (!text) {
        std::cerr << "cannot read " << argv[1] << '\n';
        return 1;
    }
    try {
        std::filesystem::create_directories(catalogue.parent_path());
        numbrela::SaveCatalogueIfUnchanged(catalogue, numbrela::ReadCatalogueSource(text), std::nullopt);
    } catch (const std::exception& error) {
        std::cerr << argv[1] << ": " << error.what() << '\n';
        return 1;
    }
    return 0;
}
