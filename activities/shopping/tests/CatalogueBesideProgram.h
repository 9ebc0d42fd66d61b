#pragma once

#include "activities/shopping/core/Catalogue.h"

#include <QCoreApplication>

#include <filesystem>

namespace numbrela::testing {

// The catalogue that the running program sells from, in the folder "Recursos" beside it: here, beside the test. It is
// gone when the test ends.
class CatalogueBesideProgram {
public:
    explicit CatalogueBesideProgram(const ProductTable& table)
    {
        std::filesystem::create_directory(folder_);
        SaveCatalogue(folder_ / "productos.dat", table);
    }
    ~CatalogueBesideProgram() { std::filesystem::remove_all(folder_); }
    CatalogueBesideProgram(const CatalogueBesideProgram&) = delete;
    CatalogueBesideProgram& operator=(const CatalogueBesideProgram&) = delete;

private:
    const std::filesystem::path folder_
        = std::filesystem::path(QCoreApplication::applicationDirPath().toStdString()) / "Recursos";
};

} // namespace numbrela::testing
