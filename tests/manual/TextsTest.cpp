#include "tests/manual/Pages.h"
#include "tests/manual/ProgramTexts.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>

#include <filesystem>
#include <set>
#include <string>

namespace numbrela::testing {

namespace {

// What Qt itself writes on the buttons of boxes.
std::set<std::string> buttonsOfBoxes()
{
    std::set<std::string> captions;
    QMessageBox box;
    for (const auto button : { QMessageBox::Ok, QMessageBox::Cancel, QMessageBox::Yes, QMessageBox::No }) {
        captions.insert(box.addButton(button)->text().remove(QChar(u'&')).toStdString());
    }
    return captions;
}

// Texts that nobody reads on the screen: names of fonts, of files, of what is Qt's and of what a browser's page does,
// what Qt's readers of the keyboard and the maker of the catalogue say to those who build the program, and the places
// of digits of thousands of millions and more, which a reader puts together as everybody counts.
bool isForNobody(const ProgramText& text)
{
    static const std::set<std::string> files { "Look.cpp", "main.cpp", "CatalogueSource.cpp", "NativeKeys.cpp",
        "Page.cpp", "PlaceName.cpp", "productos.txt" };
    static const std::set<std::string> names { "Arial", "Courier", "Courier New", "Verdana", "Dialog", "Teclado",
        "Recursos", "numbrela", "windows" };
    return files.contains(text.File) || names.contains(text.Text);
}

// Whether it is made of words, as what is said to people is: "desajuste", "Aciertos:", "NUMBRELA", but not "List1",
// "TbResultado" or "WM_STATE", which are names in the program.
bool isInWords(const std::string& text)
{
    static const QRegularExpression words(QStringLiteral("^[¿(«]*(\\p{Lu}?\\p{Ll}+|\\p{Lu}{2,}|\\p{Lu})[.,:;?)»]*$"),
        QRegularExpression::UseUnicodePropertiesOption);
    return text.find(' ') != std::string::npos || words.match(QString::fromStdString(text)).hasMatch();
}

bool hasWord(const std::string& text)
{
    static const QRegularExpression word(QStringLiteral("\\p{L}{2}"), QRegularExpression::UseUnicodePropertiesOption);
    return word.match(QString::fromStdString(text)).hasMatch();
}

std::set<std::string> quotedParts()
{
    std::set<std::string> parts;
    for (const Page& page : Pages()) {
        for (const std::string& quote : page.Quotes) {
            parts.merge([&] {
                const std::vector<std::string> list = PartsOf(quote);
                return std::set<std::string>(list.begin(), list.end());
            }());
        }
    }
    return parts;
}

TEST(ManualTextsTest, EachQuoteIsATextOfTheProgram)
{
    std::set<std::string> said = buttonsOfBoxes();
    for (const ProgramText& text : ProgramTexts()) {
        said.insert(text.Text);
    }
    for (const Page& page : Pages()) {
        EXPECT_TRUE(page.Name == "README.md" || page.Name == "administracion.md" || !page.Quotes.empty()) << page.Name;
        for (const std::string& quote : page.Quotes) {
            for (const std::string& part : PartsOf(quote)) {
                EXPECT_TRUE(said.contains(part)) << page.Name << " quotes «" << part << "»";
            }
        }
    }
}

TEST(ManualTextsTest, EachCaptionTitleMessageAndSpokenNameStandsInTheManual)
{
    const std::set<std::string> quoted = quotedParts();
    int looked = 0;
    for (const ProgramText& text : ProgramTexts()) {
        const bool isShown = text.IsCaption || isInWords(text.Text);
        if (isShown && hasWord(text.Text) && !isForNobody(text)) {
            ++looked;
            EXPECT_TRUE(quoted.contains(text.Text)) << text.File << " says «" << text.Text << "»";
        }
    }
    EXPECT_GT(looked, 150) << "hardly any text of the program has been found";
}

// What the page around the program says in a browser: the strings in its scripts that are sentences, and what stands in
// paragraphs, buttons and links.
TEST(ManualTextsTest, EachTextOfTheBrowsersPageStandsInTheManual)
{
    static const QRegularExpression sentence(QStringLiteral("[\"`]([¿\\p{Lu}][^\"`]* [^\"`]*[.…?])[^\"`]*[\"`]"));
    static const QRegularExpression element(QStringLiteral(">([^<]*\\p{L}[^<]*)</(?:p|button|a)>"));
    static const QRegularExpression filledIn(QStringLiteral("\\$\\{[^}]*\\}"));
    std::string manual;
    for (const Page& page : Pages()) {
        manual += Collapsed(page.Prose) + ' ';
    }
    int looked = 0;
    for (const auto& entry : std::filesystem::directory_iterator(PROGRAM_FOLDER "/packaging/web/page")) {
        const std::string kind = entry.path().extension().string();
        if (kind != ".js" && kind != ".html") {
            continue;
        }
        QFile file(QString::fromStdString(entry.path().string()));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString code = QString::fromUtf8(file.readAll());
        for (auto matches = (kind == ".js" ? sentence : element).globalMatch(code); matches.hasNext();) {
            QString text = matches.next().captured(1);
            for (const std::string& part : PartsOf(text.replace(filledIn, QStringLiteral("…")).toStdString())) {
                ++looked;
                EXPECT_NE(manual.find(part), std::string::npos) << entry.path().filename() << " says " << part;
            }
        }
    }
    EXPECT_GT(looked, 25) << "hardly any text of the page has been found";
}

} // namespace

} // namespace numbrela::testing
