#include "common/screen/ButtonRow.h"

#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"

#include <utility>

namespace numbrela {

namespace {

CommandButton* addColoured(TwipsLayout& area, const QString& name, const QString& caption, TwipsRect place,
    FontSpec font, Qt::GlobalColor colour)
{
    CommandButton* button = AddButton(area, name, caption, place, font);
    button->SetBackColour(colour);
    return button;
}

} // namespace

ButtonRow AddButtonRow(TwipsLayout& area, const ButtonRowDesign& design, std::function<void()> check,
    const std::function<void(int)>& command2)
{
    ButtonRow row;
    row.Command1 = addColoured(
        area, QStringLiteral("Command1"), QStringLiteral("&Hecho"), design.Places[0], design.Font, Qt::yellow);
    QObject::connect(row.Command1, &QPushButton::clicked, area.parentWidget(), std::move(check));

    const std::array<QString, 3> captions { QStringLiteral("&Continuar"), QStringLiteral("&Borrar"),
        design.SolutionCaption };
    const std::array<Qt::GlobalColor, 3> colours { Qt::cyan, Qt::green, Qt::red };
    for (int index = 0; index < 3; ++index) {
        const auto i = static_cast<std::size_t>(index);
        row.Command2[i] = addColoured(area, QStringLiteral("Command2(%1)").arg(index), captions[i],
            design.Places[i + 1], design.Font, colours[i]);
        QObject::connect(
            row.Command2[i], &QPushButton::clicked, area.parentWidget(), [command2, index] { command2(index); });
    }
    return row;
}

} // namespace numbrela
