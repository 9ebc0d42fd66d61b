#include "common/screen/Controls.h"

#include "common/screen/CommandButton.h"
#include "common/screen/TextBox.h"

#include <QFrame>
#include <QLabel>

namespace numbrela {

TextBox* AddTextBox(TwipsLayout& area, const QString& name, TwipsRect place, FontSpec font, Qt::Alignment alignment)
{
    auto* box = new TextBox(area.parentWidget());
    box->setAlignment(alignment);
    return AddControl(area, box, name, place, font);
}

TextBox* AddReadOnlyBox(TwipsLayout& area, const QString& name, const QString& spokenName, TwipsRect place,
    FontSpec font, Qt::Alignment alignment)
{
    TextBox* box = AddTextBox(area, name, place, font, alignment);
    box->setReadOnly(true);
    box->setAccessibleName(spokenName);
    return box;
}

CommandButton* AddButton(TwipsLayout& area, const QString& name, const QString& caption, TwipsRect place, FontSpec font)
{
    return AddControl(area, new CommandButton(caption, area.parentWidget()), name, place, font);
}

QLabel* AddLabel(TwipsLayout& area, const QString& name, const QString& caption, TwipsRect place, FontSpec font)
{
    auto* label = new QLabel(caption, area.parentWidget());
    label->setAlignment(Qt::AlignCenter);
    return AddControl(area, label, name, place, font);
}

TwipsLayout* AddFrame(TwipsLayout& area, const QString& name, TwipsRect place, FontSpec font)
{
    auto* frame = AddControl(area, new QFrame(area.parentWidget()), name, place, font);
    frame->setFrameShape(QFrame::StyledPanel);
    return new TwipsLayout(frame, { place.Width, place.Height }, font);
}

} // namespace numbrela
