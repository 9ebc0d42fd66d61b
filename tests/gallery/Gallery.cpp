#include "tests/gallery/Gallery.h"

#include <QCoreApplication>
#include <QPixmap>

#include <iostream>

namespace numbrela::testing {

Gallery::Gallery(const QString& folder)
    : folder_(folder)
{
    folder_.mkpath(QStringLiteral("."));
}

void Gallery::Draw(QWidget& window, const QString& name)
{
    QCoreApplication::processEvents(); // let the layout settle
    const QString path = folder_.filePath(name + QStringLiteral(".png"));
    if (!window.grab().save(path)) {
        std::cerr << "cannot write " << path.toStdString() << '\n';
        ++failures_;
    }
}

void Gallery::DrawMaximised(QWidget& window, const QString& name)
{
    const QSize before = window.size();
    window.resize(1280, 800);
    Draw(window, name);
    window.resize(before);
}

} // namespace numbrela::testing
