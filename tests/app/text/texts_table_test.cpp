// The table of English texts: fixed texts, placeholders, mnemonics, names.
#include "app/help/helpFile.h"
#include "app/text/lang.h"
#include "closed/tvlng/table.h"
#include "tests/app/text/texts_scan.h"
#include "tests/support/fixture.h"

#include <QRegularExpression>

#include <set>

namespace tarvik {

namespace {

const QString kSourceTree = QStringLiteral(TEXTS_SOURCE_TREE);

std::map<int, QString> AllTexts()
{
    std::map<int, QString> texts;
    for (size_t at = 0; at < kTvTextCount; ++at)
        texts[kTvTexts[at].Number] = QString::fromLatin1(kTvTexts[at].Text);
    return texts;
}

std::set<int> PlacesIn(const QString& text)
{
    std::set<int> places;
    for (int place = 1; place <= 3; ++place) {
        if (text.contains(QStringLiteral("%%1").arg(place)))
            places.insert(place);
    }
    return places;
}

bool IsHelp(const NamedNumber& name)
{
    return name.Name.startsWith(QLatin1String("HelpId::"));
}

QString WithoutOptionalParts(QString text)
{
    return text.remove(QRegularExpression(QStringLiteral("\\{[^}]*\\}")));
}

/// The letter after the mnemonic mark, lower-case; null without one.
QChar MnemonicOf(const QString& caption)
{
    const QString single = QString(caption).remove(QStringLiteral("&&"));
    const qsizetype mark = single.indexOf(u'&');
    return mark < 0 || mark + 1 >= single.size() ? QChar() : single[mark + 1].toLower();
}

void ExpectUniqueMnemonics(const char* where, const std::vector<int>& captions)
{
    std::map<QChar, int> taken;
    for (int caption : captions) {
        const QChar letter = MnemonicOf(LngStr(caption));
        if (letter.isNull())
            continue;
        EXPECT_TRUE(taken.emplace(letter, caption).second)
            << where << ": " << caption << " and " << taken[letter] << " share a letter";
    }
}

std::vector<int> EvenNumbers(int first, int last)
{
    std::vector<int> numbers;
    for (int number = first; number <= last; number += 2)
        numbers.push_back(number);
    return numbers;
}

std::vector<int> Joined(std::vector<int> first, const std::vector<int>& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

class TextTable : public ProgramTest { };

} // namespace

TEST_F(TextTable, HoldsTheTextsThatFilesAndInstrumentsDependOn)
{
    const QByteArray table = Contents(kSourceTree + QStringLiteral("/tests/app/text/fixed_texts.tsv"));
    const QStringList lines = QString::fromUtf8(table).split(u'\n', Qt::SkipEmptyParts);
    EXPECT_GE(lines.size(), 150);
    for (const QString& line : lines) {
        const int number = line.section(u'\t', 0, 0).toInt();
        EXPECT_EQ(LngStr(number), line.section(u'\t', 1)) << number;
    }
}

TEST_F(TextTable, IsSortedByNumber)
{
    const QByteArray table = Contents(kSourceTree + QStringLiteral("/closed/tvlng/en.tsv"));
    int last = 0;
    size_t count = 0;
    for (const QString& line : QString::fromUtf8(table).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(u'#'))
            continue;
        const int number = line.section(u'\t', 0, 0).toInt();
        EXPECT_LT(last, number);
        last = number;
        ++count;
    }
    EXPECT_EQ(count, kTvTextCount);
}

TEST_F(TextTable, HasOneNameForTheWrittenAndTheReadDescriptionLine)
{
    EXPECT_EQ(LngStr(10744), LngStr(11000));
}

TEST_F(TextTable, ShowsNoUnfilledPlaceholder)
{
    for (const auto& [number, text] : AllTexts()) {
        EXPECT_FALSE(LngStr(number).contains(u'%') && number != 14137) << number << ": " << text.toStdString();
        EXPECT_FALSE(LngStr(number).contains(u'{')) << number;
    }
}

TEST_F(TextTable, HasNoDoubleOrOuterBlanks)
{
    const std::set<int> exceptions{ 10421, 10434, 10743, 14301 };
    for (const auto& [number, text] : AllTexts()) {
        if (exceptions.contains(number))
            continue;
        EXPECT_EQ(text, text.trimmed()) << number;
        EXPECT_FALSE(text.contains(QLatin1String("  "))) << number;
    }
}

TEST_F(TextTable, EndsEveryMessageWithAFullStopOrQuestionMark)
{
    const std::set<int> titles{ 12753 };
    for (const auto& [number, text] : AllTexts()) {
        if (number < 12702 || number > 12896 || titles.contains(number))
            continue;
        const bool isSentence = text.endsWith(u'.') || text.endsWith(u'?') || text.endsWith(QLatin1String("%1"))
            || text.endsWith(QLatin1String("%2"));
        EXPECT_TRUE(isSentence && !text.endsWith(QLatin1String(".."))) << number << ": " << text.toStdString();
    }
}

TEST_F(TextTable, ClosesBracesAndNumbersPlaceholdersFromOne)
{
    for (const auto& [number, text] : AllTexts()) {
        EXPECT_EQ(text.count(u'{'), text.count(u'}')) << number;
        const std::set<int> places = PlacesIn(text);
        EXPECT_TRUE(places.empty() || *places.rbegin() == static_cast<int>(places.size())) << number;
    }
}

TEST_F(TextTable, HasDistinctUnits)
{
    std::map<QString, int> units;
    for (int number = 14116; number <= 14162; ++number) {
        EXPECT_FALSE(LngStr(number).isEmpty()) << number;
        EXPECT_TRUE(units.emplace(LngStr(number), number).second) << number;
    }
}

TEST_F(TextTable, HasAPrefixForEachPowerOfThousand)
{
    const QStringList prefixes{ "y", "z", "a", "f", "p", "n", QStringLiteral("µ"), "m", "k", "M", "G", "T", "P", "E" };
    for (int index = 0; index < prefixes.size(); ++index)
        EXPECT_EQ(LngStr(14100 + index), prefixes[index]);
}

TEST_F(TextTable, HasTextsForEveryStatusWordOfTheListStore)
{
    for (int number = 12828; number <= 12891; ++number) {
        if (number == 12867)
            continue;
        EXPECT_FALSE(LngStr(number).isEmpty()) << number;
        EXPECT_TRUE(LngStr1(number, QStringLiteral("17")).contains(QLatin1String("17"))) << number;
    }
}

TEST_F(TextTable, HasUniqueMnemonicsInEachMenu)
{
    ExpectUniqueMnemonics("menu bar", { 11902, 11922, 11926, 11934, 11942, 11944, 11950, 11968 });
    ExpectUniqueMnemonics("File", EvenNumbers(11904, 11920));
    ExpectUniqueMnemonics("View", EvenNumbers(11928, 11932));
    ExpectUniqueMnemonics("Instrument, not connected", Joined({ 11936, 11938 }, EvenNumbers(11980, 11988)));
    ExpectUniqueMnemonics("Instrument, connected", Joined({ 11936, 11940 }, EvenNumbers(11980, 11988)));
    ExpectUniqueMnemonics("Tools", EvenNumbers(11990, 11998));
    ExpectUniqueMnemonics("Options", { 11946, 11948 });
    ExpectUniqueMnemonics("Window", EvenNumbers(11952, 11966));
    ExpectUniqueMnemonics("Help", Joined({ 11900 }, EvenNumbers(11970, 11978)));
}

TEST_F(TextTable, HasUniqueMnemonicsInEachPopUp)
{
    const std::vector<int> frame = Joined({ 11904, 11930, 11932, 11936, 12000 }, EvenNumbers(11980, 11988));
    ExpectUniqueMnemonics("frame, not connected", Joined(frame, { 11938 }));
    ExpectUniqueMnemonics("frame, connected", Joined(frame, { 11940 }));
    ExpectUniqueMnemonics("screen window", { 11918, 11924, 11928, 11946 });
    ExpectUniqueMnemonics("data set window", { 11918, 11924, 11928, 11946, 11948 });
}

TEST_F(TextTable, HasUniqueMnemonicsInEachForm)
{
    const std::vector<int> editor{ 10709, 10733, 10717, 10713, 10715 };
    ExpectUniqueMnemonics("memory list", Joined(editor, { 10723, 10741, 10711, 10763, 10744 }));
    ExpectUniqueMnemonics("memory entry",
        { 10733, 10707, 10705, 10711, 10912, 10913, 10914, 10915, 10916, 10917, 10918, 10919, 10920, 10921, 10924,
            10925, 10926, 10927, 10928, 10967 });
    ExpectUniqueMnemonics("suppress list", Joined(editor, { 10711, 10719, 10723 }));
    ExpectUniqueMnemonics("K-factor table", Joined(editor, { 10711, 10721, 10723 }));
    ExpectUniqueMnemonics("antenna list",
        Joined(Joined(editor, { 10711, 10725, 10727, 10729, 10731, 10748 }),
            { 10790, 10791, 10792, 10793, 10794, 10795, 10796, 10797, 10798, 10799 }));
    ExpectUniqueMnemonics("correction set",
        Joined(editor, { 10711, 10721, 10723, 10735, 10736, 10737, 10805, 10806, 10807, 10808, 10809 }));
    ExpectUniqueMnemonics("about", { 10004, 10006, 10009 });
    ExpectUniqueMnemonics("versions", { 11709, 11710 });
    ExpectUniqueMnemonics("message", { 13100, 13101, 13103, 13105, 13110, 13112 });
    ExpectUniqueMnemonics("connect", { 10412, 10413, 10414, 10415, 10416, 10417, 10419 });
    ExpectUniqueMnemonics("connection", { 10437, 10438, 10439, 10440, 10441, 10442, 10443 });
    ExpectUniqueMnemonics("convert", { 11402, 11404, 11406, 11408, 11410, 11412 });
    ExpectUniqueMnemonics("palette", { 13203, 13205, 13207, 13210, 13212 });
    ExpectUniqueMnemonics("preview", EvenNumbers(13302, 13326));
    ExpectUniqueMnemonics("windows", EvenNumbers(13402, 13412));
    ExpectUniqueMnemonics("description", { 10502, 10508, 10510, 10512, 10514, 10516 });
    ExpectUniqueMnemonics("file control", Joined({ 12409, 12410, 12411, 12412, 12413, 12414, 12415 }, {}));
    ExpectUniqueMnemonics("help viewer", { 10605, 10606, 10607, 10614, 10608, 10610, 10612 });
}

TEST_F(TextTable, HasAMnemonicInEveryMenuCaption)
{
    for (int caption = 11900; caption <= 12000; caption += 2)
        EXPECT_FALSE(MnemonicOf(LngStr(caption)).isNull()) << caption;
}

TEST_F(TextTable, HasDotsAfterTheCommandsThatOpenADialog)
{
    const std::set<int> dialogs{ 11900, 11904, 11908, 11910, 11912, 11914, 11916, 11918, 11938, 11940, 11946, 11948,
        11980, 11982, 11984, 11986, 11988, 11990, 11992, 11994, 11996, 11998, 12000 };
    for (int caption = 11900; caption <= 12000; caption += 2)
        EXPECT_EQ(LngStr(caption).section(u'\t', 0, 0).endsWith(QLatin1String("...")), dialogs.contains(caption))
            << caption;
}

TEST_F(TextTable, NamesTheKeysOfTheFrame)
{
    const std::map<int, QString> keys{ { 11904, "Ctrl+O" }, { 11906, "Ctrl+W" }, { 11908, "Ctrl+S" },
        { 11918, "Ctrl+P" }, { 11920, "Ctrl+Q" }, { 11924, "Ctrl+C" } };
    for (int caption = 11900; caption <= 12000; caption += 2) {
        const auto key = keys.find(caption);
        EXPECT_EQ(LngStr(caption).section(u'\t', 1), key == keys.end() ? QString() : key->second) << caption;
    }
}

TEST_F(TextTable, IsReferencedByNameOnly)
{
    const SourceScan scan = ScanTree(kSourceTree);
    EXPECT_GE(scan.Names.size(), 500U);
    for (const NumberUse& use : scan.Numbers)
        ADD_FAILURE() << use.Number << " at " << use.Place.toStdString();
}

TEST_F(TextTable, HasItsNamesSortedByNumber)
{
    int before = 0;
    std::set<QString> seen;
    for (const NamedNumber& name : ReadNames(kSourceTree)) {
        EXPECT_GT(name.Number, before) << name.Name.toStdString();
        EXPECT_TRUE(seen.insert(name.Name).second) << name.Name.toStdString();
        before = name.Number;
    }
}

TEST_F(TextTable, HasATextOrAHelpTopicForEveryName)
{
    const std::vector<NamedNumber> names = ReadNames(kSourceTree);
    EXPECT_GE(names.size(), 400U);
    const std::map<int, QString> texts = AllTexts();
    HelpFile book;
    ASSERT_TRUE(book.Open(QStringLiteral(HELP_BOOK)));
    for (const NamedNumber& name : names) {
        EXPECT_EQ(texts.contains(name.Number), !IsHelp(name)) << name.Name.toStdString();
        EXPECT_TRUE(!IsHelp(name) || !book.TopicPath(name.Number).isEmpty()) << name.Name.toStdString();
    }
}

TEST_F(TextTable, HasNoUnusedName)
{
    std::set<QString> used;
    for (const NameUse& use : ScanTree(kSourceTree).Names)
        used.insert(use.Name);
    for (const NamedNumber& name : ReadNames(kSourceTree))
        EXPECT_TRUE(used.contains(name.Name)) << name.Name.toStdString();
}

TEST_F(TextTable, HasAPlaceholderForEachArgument)
{
    const std::map<int, QString> texts = AllTexts();
    std::map<QString, int> numbers;
    for (const NamedNumber& name : ReadNames(kSourceTree))
        numbers[name.Name] = name.Number;
    const SourceScan scan = ScanTree(kSourceTree);
    EXPECT_GE(scan.Calls.size(), 50U);
    for (const TextCall& call : scan.Calls) {
        const auto text = texts.find(numbers[call.Name]);
        ASSERT_NE(text, texts.end()) << call.Name.toStdString() << " at " << call.Place.toStdString();
        const std::set<int> offered = PlacesIn(text->second);
        const std::set<int> needed = PlacesIn(WithoutOptionalParts(text->second));
        EXPECT_GE(static_cast<int>(offered.size()), call.Arguments)
            << call.Name.toStdString() << " drops an argument at " << call.Place.toStdString();
        EXPECT_LE(static_cast<int>(needed.size()), call.Arguments)
            << call.Name.toStdString() << " misses an argument at " << call.Place.toStdString();
    }
}

/// Only the first text of a run has a name.
TEST_F(TextTable, HasTheSamePlaceholdersInAllTextsOfARun)
{
    const std::map<int, QString> texts = AllTexts();
    const std::map<int, int> lastOfRuns{ { 12828, 12834 }, { 12835, 12837 }, { 12839, 12860 }, { 12861, 12866 },
        { 12868, 12881 }, { 12882, 12883 }, { 12884, 12885 }, { 12886, 12889 }, { 12890, 12891 } };
    for (const auto& [first, last] : lastOfRuns) {
        for (int number = first; number <= last; ++number) {
            EXPECT_EQ(PlacesIn(texts.at(number)), std::set<int>{ 1 }) << number;
            EXPECT_EQ(PlacesIn(WithoutOptionalParts(texts.at(number))), std::set<int>{}) << number;
        }
    }
}

TEST(SourceScanner, FindsNumbersNamesAndCallsInCode)
{
    SourceScan scan;
    ScanSource(QStringLiteral("a.cpp"),
        QStringLiteral("constexpr int kOver = 12734;\nvoid F()\n{\n    MsgOk1(TextId::Over, name);\n"
                       "    LngStr( TextId::Parting );\n    ShowHelp(HelpId::Save);\n"
                       "    Table t{ 13801, TextId::Open };\n}\n"),
        scan);
    ASSERT_EQ(scan.Numbers.size(), 2U);
    EXPECT_EQ(scan.Numbers[0].Number, 12734);
    EXPECT_EQ(scan.Numbers[1].Number, 13801);
    EXPECT_EQ(scan.Numbers[1].Place, QStringLiteral("a.cpp:7"));
    ASSERT_EQ(scan.Names.size(), 4U);
    EXPECT_EQ(scan.Names[2].Name, QStringLiteral("HelpId::Save"));
    EXPECT_EQ(scan.Names[2].Place, QStringLiteral("a.cpp:6"));
    EXPECT_EQ(scan.Names[3].Name, QStringLiteral("TextId::Open"));
    ASSERT_EQ(scan.Calls.size(), 2U);
    EXPECT_EQ(scan.Calls[0].Name, QStringLiteral("TextId::Over"));
    EXPECT_EQ(scan.Calls[0].Arguments, 1);
    EXPECT_EQ(scan.Calls[0].Place, QStringLiteral("a.cpp:4"));
    EXPECT_EQ(scan.Calls[1].Name, QStringLiteral("TextId::Parting"));
}

TEST(SourceScanner, IgnoresCommentsLiteralsAndOtherNumbers)
{
    SourceScan scan;
    ScanSource(QStringLiteral("a.cpp"),
        QStringLiteral("// 12734 TextId::Over\n/* MsgOk(TextId::Over);\n12736 */ int a = 112734, b = 12'734, c = 9999,"
                       " d = 14601;\nconst char* e = \"12737 \\\" 12738\"; char f = '\\''; double g = 12739.5;\n"),
        scan);
    EXPECT_TRUE(scan.Numbers.empty());
    EXPECT_TRUE(scan.Names.empty());
    EXPECT_TRUE(scan.Calls.empty());
}

} // namespace tarvik
