#include "tests/monkey/Texts.h"

#include <QStringList>

#include <array>
#include <vector>

namespace numbrela::testing {

namespace {

const std::vector<Key> navigationKeys { { Qt::Key_Return, QStringLiteral("\r") },
    { Qt::Key_Enter, QStringLiteral("\r"), true }, { Qt::Key_Escape, QStringLiteral("\x1b") },
    { Qt::Key_Space, QStringLiteral(" ") }, { Qt::Key_Tab, QStringLiteral("\t") }, { Qt::Key_Backtab },
    { Qt::Key_Left }, { Qt::Key_Right }, { Qt::Key_Up }, { Qt::Key_Down }, { Qt::Key_Home }, { Qt::Key_End },
    { Qt::Key_PageUp }, { Qt::Key_PageDown } };

const std::vector<Key> correctingKeys { { Qt::Key_Backspace, QStringLiteral("\b") },
    { Qt::Key_Delete, QStringLiteral("\x7f") } };

const std::vector<Key> commandKeys { { Qt::Key_Insert }, { Qt::Key_Shift }, { Qt::Key_Control }, { Qt::Key_Alt },
    { Qt::Key_AltGr }, { Qt::Key_Meta }, { Qt::Key_CapsLock }, { Qt::Key_NumLock }, { Qt::Key_Menu }, { Qt::Key_Pause },
    { Qt::Key_Print }, { Qt::Key_Undo }, { Qt::Key_Cut }, { Qt::Key_Paste }, { Qt::Key_Cancel }, { Qt::Key_Back },
    { Qt::Key_Dead_Acute }, { Qt::Key_unknown }, { 0 } };

constexpr const char16_t* writtenCharacters
    = u"0123456789,,,..abcdefghijklmnopqrstuvwxyzABCÑñçáéíóúü€ºª+-*/=:;()%&$#@!¿?¡'\"";

const QStringList wildTexts
    = QStringLiteral("| |0|-0|0,0|-5|-12,75|+3|7-|abc|12abc|,|.|-|1,2,3|1.234,5|1,234.5|  7  |1 0|1e3|"
                     "1E-3|1e308|9e307|-1e308|1e309|1e-320|1e99999999999|1d5|&H10|0x10|inf|NaN|"
                     "0,0000000001|0,1234567890123456789|32767|32768|2147483647|2147483648|"
                     "-2147483648|999999999999999|99999999999999999999|1000|999,99|Panadería|"
                     "panadería |Supermercado|Ñoño, el de la «€»|漢字 ٣ 😀|a\tb\nc|"
                     "<b>negrita</b>|&Opciones")
          .split(u'|');

QString longText(Chance& chance)
{
    constexpr std::array<int, 4> lengths { 40, 120, 400, 33000 }; // characters; more than a line edit takes at the end
    const QChar character = chance.OneOf(QStringLiteral("9 0,ax"));
    // The longest is rare: laying it out takes Qt a while.
    const int length = chance.Percent(5) ? lengths.back() : lengths.at(static_cast<std::size_t>(chance.Below(3)));
    return QString(length, character);
}

} // namespace

Key KeyFor(QChar character)
{
    const int code = character.toUpper().unicode(); // Qt's codes of the printable keys are their characters
    return { code, QString(character) };
}

Key NavigationKey(Chance& chance)
{
    return chance.OneOf(navigationKeys);
}

Key AnyKey(Chance& chance)
{
    const int kind = chance.Below(100);
    if (kind < 51) {
        return KeyFor(chance.OneOf(QStringView(writtenCharacters)));
    }
    if (kind < 55) {
        return chance.OneOf(correctingKeys);
    }
    if (kind < 65) {
        return { Qt::Key_0 + chance.Below(10), QString(QLatin1Char(static_cast<char>('0' + chance.Below(10)))), true };
    }
    if (kind < 68) {
        return { Qt::Key_Comma, QStringLiteral(","), true };
    }
    if (kind < 88) {
        return NavigationKey(chance);
    }
    if (kind < 94) {
        return { Qt::Key_F1 + chance.Below(12) };
    }
    return chance.OneOf(commandKeys);
}

QString SensibleNumber(Chance& chance)
{
    constexpr int mostDigits = 6;
    QString number = QString::number(chance.Below(9) + 1);
    for (int digit = chance.Below(mostDigits); digit > 0; --digit) {
        number += QString::number(chance.Below(10));
    }
    if (chance.Percent(40)) {
        number += QStringLiteral(",%1").arg(chance.Below(100));
    }
    return number;
}

QString SensibleAnswer(const QString& prompt, Chance& chance)
{
    static const QStringList shops { QStringLiteral("Panadería"), QStringLiteral("Frutería"),
        QStringLiteral("Kiosko") };
    static const QStringList products { QStringLiteral("Pan integral"), QStringLiteral("Manzanas"),
        QStringLiteral("Una caja de lápices de veinticuatro colores") };
    if (prompt.contains(QStringLiteral("tienda"), Qt::CaseInsensitive)) {
        return chance.OneOf(shops);
    }
    return prompt.contains(QStringLiteral("nombre"), Qt::CaseInsensitive) ? chance.OneOf(products)
                                                                          : SensibleNumber(chance);
}

QString WildText(Chance& chance)
{
    return chance.Percent(10) ? longText(chance) : chance.OneOf(wildTexts);
}

} // namespace numbrela::testing
