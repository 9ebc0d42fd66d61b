#include "app/ProgramRun.h"

#include <QCoreApplication>

namespace numbrela {

std::filesystem::path CatalogueBesideProgram()
{
    const std::filesystem::path programFolder = QCoreApplication::applicationDirPath().toStdU16String();
    return programFolder / "Recursos" / "productos.dat";
}

} // namespace numbrela
