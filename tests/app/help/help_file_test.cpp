// The help book: that the installed one is complete, and that a damaged one is refused.
#include "app/help/helpFile.h"
#include "app/help/helpSeal.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "closed/tvlng/table.h"
#include "tests/support/fixture.h"

#include <QRegularExpression>

#include <set>

namespace tarvik {

namespace {

const QString kBook = QStringLiteral(HELP_BOOK);

class HelpBook : public ProgramTest {
protected:
    HelpBook()
    {
        EXPECT_TRUE(book_.Open(kBook));
    }

    /// True if the page exists and has the anchor after "#".
    bool IsResolved(const QString& path) const
    {
        const std::optional<QByteArray> page = book_.Page(path);
        const QString anchor = path.section(u'#', 1);
        return page && (anchor.isEmpty() || page->contains("id=\"" + anchor.toUtf8() + '"'));
    }

    void ExpectTopic(int helpNumber) const
    {
        const QString path = book_.TopicPath(helpNumber);
        EXPECT_TRUE(!path.isEmpty() && IsResolved(path)) << helpNumber << " -> " << path.toStdString();
        EXPECT_FALSE(book_.PopupText(helpNumber).isEmpty()) << helpNumber;
        EXPECT_FALSE(book_.TitleOf(path).isEmpty()) << helpNumber;
    }

    static QStringList Paths(const std::vector<HelpTopic>& topics)
    {
        QStringList paths;
        for (const HelpTopic& topic : topics)
            paths.append(topic.Path);
        return paths;
    }

    HelpFile book_;
};

class DamagedHelpBook : public ProgramTest {
protected:
    void ExpectRefused(const QByteArray& bytes)
    {
        const QString path = FilePath(QStringLiteral("book.chm"));
        QFile::remove(path);
        Store(path, bytes);
        HelpFile book;
        EXPECT_FALSE(book.Open(path));
        EXPECT_FALSE(book.IsOpen());
        EXPECT_EQ(book.Page(QStringLiteral("index.html")), std::nullopt);
        EXPECT_EQ(ReadHelpVersion(path), std::nullopt);
    }
};

} // namespace

TEST_F(HelpBook, BeginsItsContentsWithTheHomePage)
{
    ASSERT_GT(book_.Contents().size(), 40U);
    EXPECT_EQ(book_.Contents().front().Path, QStringLiteral("index.html#welcome"));
    EXPECT_EQ(book_.Contents().front().Level, 0);
    EXPECT_EQ(book_.Contents()[1].Level, 1);
}

TEST_F(HelpBook, ResolvesEveryEntryOfContentsAndIndex)
{
    ASSERT_GT(book_.Index().size(), 80U);
    for (const auto* topics : { &book_.Contents(), &book_.Index() }) {
        for (const HelpTopic& topic : *topics) {
            EXPECT_FALSE(topic.Title.isEmpty());
            EXPECT_TRUE(IsResolved(topic.Path)) << topic.Path.toStdString();
        }
    }
}

TEST_F(HelpBook, SortsItsIndexByKeyword)
{
    for (size_t at = 1; at < book_.Index().size(); ++at)
        EXPECT_LT(book_.Index()[at - 1].Title.toLower(), book_.Index()[at].Title.toLower());
}

TEST_F(HelpBook, HasATopicForEachMenuItem)
{
    for (int number = 11901; number <= 12001; number += 2)
        ExpectTopic(number);
}

TEST_F(HelpBook, HasATopicForEachToolBarButton)
{
    for (int number : { 13803, 13806, 13809, 13812, 13815, 13818, 13822, 13826, 13829, 13832, 13835, 13839, 13842,
             13845, 13848, 13851, 13854, 13857, 13860, 13863, 13866 })
        ExpectTopic(number);
}

TEST_F(HelpBook, HasATopicForFrameAndStatusBar)
{
    for (int number : { 11801, 13600, 13602, 13606, 13608, 13610 })
        ExpectTopic(number);
}

TEST_F(HelpBook, HasATopicForTheSmallForms)
{
    for (int number = 10000; number <= 10014; ++number)
        ExpectTopic(number);
    for (int number = 11700; number <= 11712; ++number)
        ExpectTopic(number);
    for (int number = 13100; number <= 13113; ++number)
        ExpectTopic(number);
}

TEST_F(HelpBook, HasATopicForEditorAndEntryDialog)
{
    for (int number : { 10702, 10706, 10708, 10710, 10712, 10714, 10716, 10718, 10724, 10734, 10738, 10739, 10742,
             10745, 10764, 10825, 11991, 11993, 11995, 11997, 11999 })
        ExpectTopic(number);
}

TEST_F(HelpBook, HasATopicForTheOtherEditorsAndTheDiagram)
{
    for (int number : { 10720, 10722, 10726, 10728, 10730, 10732, 10735, 10736, 10737, 10749, 10752, 10757, 10767,
             10772, 13505, 13506 })
        ExpectTopic(number);
    for (int number = 10776; number <= 10809; ++number)
        ExpectTopic(number);
    for (int number = 10930; number <= 10933; ++number)
        ExpectTopic(number);
}

TEST_F(HelpBook, HasATopicForTheConnectionForms)
{
    for (int number = 10300; number <= 10303; ++number)
        ExpectTopic(number);
    for (int number = 10400; number <= 10424; ++number)
        ExpectTopic(number);
    for (int number = 10436; number <= 10450; ++number)
        ExpectTopic(number);
}

TEST_F(HelpBook, HasATopicForTheFileControlWindowOfEachKindOfFile)
{
    for (int number = 12400; number <= 12431; ++number) {
        if (number < 12416 || number > 12418) // the captions of columns
            ExpectTopic(number);
    }
    for (int number = 12443; number <= 12502; ++number) {
        const int slot = (number - 12443) % 10 + 1;
        if (slot != 7) // the class's name
            ExpectTopic(number);
    }
}

TEST_F(HelpBook, HasATopicForEachMessage)
{
    int messages = 0;
    for (size_t at = 0; at < kTvTextCount; ++at) {
        const int number = kTvTexts[at].Number;
        const bool isTitle = number == 12753;
        if (number < 12702 || number > 12896 || isTitle)
            continue;
        ++messages;
        ExpectTopic(number);
    }
    EXPECT_GT(messages, 150);
    ExpectTopic(10435);
    ExpectTopic(10451);
}

TEST_F(HelpBook, NamesTopicsLikeTheProgram)
{
    EXPECT_EQ(book_.TitleOf(book_.TopicPath(11905)), QStringLiteral("Open"));
    EXPECT_TRUE(book_.TitleOf(book_.TopicPath(12769)).contains(LngStr(12769)));
}

TEST_F(HelpBook, HasNoPlaceholderInAPage)
{
    static const QRegularExpression leftOver(QStringLiteral("\\{\\{|%\\d|@\\d"));
    for (const HelpTopic& topic : book_.Contents())
        EXPECT_FALSE(QString::fromUtf8(*book_.Page(topic.Path)).contains(leftOver)) << topic.Path.toStdString();
}

TEST_F(HelpBook, HasNothingForOtherNumbers)
{
    for (int number : { 0, -1, 9999, 14301 }) {
        EXPECT_EQ(book_.TopicPath(number), QString());
        EXPECT_EQ(book_.PopupText(number), QString());
    }
}

TEST_F(HelpBook, HasTheVersionOfTheProgram)
{
    ASSERT_TRUE(book_.Version());
    EXPECT_EQ(book_.Version()->File, ProductVersionText() + QStringLiteral(".0"));
    EXPECT_EQ(book_.Version()->Product, ProductVersionText() + QStringLiteral(".0"));
    ASSERT_TRUE(ReadHelpVersion(kBook));
    EXPECT_EQ(ReadHelpVersion(kBook)->File, book_.Version()->File);
}

TEST_F(HelpBook, FindsAPageWithOrWithoutSlashAndAnchor)
{
    const std::optional<QByteArray> page = book_.Page(QStringLiteral("index.html"));
    ASSERT_TRUE(page);
    EXPECT_EQ(book_.Page(QStringLiteral("/index.html#welcome")), page);
    EXPECT_TRUE(book_.Page(QStringLiteral("style.css")));
    EXPECT_TRUE(book_.Page(QStringLiteral("style-dark.css")));
}

TEST_F(HelpBook, HasNoPageOutsideItself)
{
    for (const char* path : { "", "/", "../index.html", "/etc/passwd", "none.html" })
        EXPECT_FALSE(book_.Page(QString::fromLatin1(path))) << path;
}

TEST_F(HelpBook, FindsTopicsThatContainEveryWord)
{
    const QStringList both = Paths(book_.Search(QStringLiteral("  DECIMAL   comma ")));
    EXPECT_TRUE(both.contains(QStringLiteral("editors.html#numbers")));
    EXPECT_LT(both.size(), Paths(book_.Search(QStringLiteral("comma"))).size());
}

TEST_F(HelpBook, FindsHeadingsBeforeOtherTopics)
{
    const QStringList found = Paths(book_.Search(QStringLiteral("csv")));
    ASSERT_GT(found.size(), 3);
    EXPECT_EQ(found.front(), QStringLiteral("csv.html#csv"));
    EXPECT_TRUE(found.contains(QStringLiteral("lists.html#forms")));
}

TEST_F(HelpBook, FindsAMessageByItsNumber)
{
    EXPECT_EQ(Paths(book_.Search(QStringLiteral("12734"))).filter(QStringLiteral("#m12734")).size(), 1);
}

TEST_F(HelpBook, FindsNothingWithoutWordsOrForUnknownOnes)
{
    EXPECT_TRUE(book_.Search(QStringLiteral("  ")).empty());
    EXPECT_TRUE(book_.Search(QStringLiteral("xyzzy")).empty());
    EXPECT_TRUE(book_.Search(QStringLiteral("sorting xyzzy")).empty());
}

TEST_F(HelpBook, SearchesTextAndNotMarkup)
{
    EXPECT_TRUE(book_.Search(QStringLiteral("href")).empty());
    EXPECT_TRUE(book_.Search(QStringLiteral("data-help")).empty());
}

TEST_F(HelpBook, IsReopenedWhenItsPathChanges)
{
    Program().HelpFilePath = FilePath(QStringLiteral("none.chm"));
    EXPECT_EQ(TheHelpFile(), nullptr);
    Program().HelpFilePath = kBook;
    ASSERT_NE(TheHelpFile(), nullptr);
    EXPECT_EQ(TheHelpFile(), TheHelpFile());
    Program().HelpFilePath = FilePath(QStringLiteral("none.chm"));
    EXPECT_EQ(TheHelpFile(), nullptr);
}

TEST_F(HelpBook, PopsUpTheFirstParagraphOfATopic)
{
    Program().HelpFilePath = kBook;
    EXPECT_TRUE(PopupHelpText(10724).startsWith(QLatin1String("Sorts the list.")));
    EXPECT_FALSE(PopupHelpText(10825).contains(u'<'));
}

TEST_F(HelpBook, PopsUpThatANumberHasNoHelp)
{
    Program().HelpFilePath = kBook;
    EXPECT_EQ(PopupHelpText(14301), LngStr1(12702, QStringLiteral("14301")));
    Program().HelpFilePath = FilePath(QStringLiteral("none.chm"));
    EXPECT_EQ(PopupHelpText(10724), LngStr1(12702, QStringLiteral("10724")));
}

TEST_F(DamagedHelpBook, IsRefusedWhenMissingOrAFolder)
{
    HelpFile book;
    EXPECT_FALSE(book.Open(FilePath(QStringLiteral("none.chm"))));
    EXPECT_FALSE(book.Open(Folder()));
    EXPECT_FALSE(book.Open(QString()));
}

TEST_F(DamagedHelpBook, IsRefusedWithAnyByteChanged)
{
    const QByteArray whole = Contents(kBook);
    for (qsizetype at = 0; at < whole.size(); at += 997) {
        QByteArray changed = whole;
        changed[at] = static_cast<char>(changed[at] ^ 0x40);
        ExpectRefused(changed);
    }
}

TEST_F(DamagedHelpBook, IsRefusedWhenTruncatedOrLonger)
{
    const QByteArray whole = Contents(kBook);
    for (qsizetype size : { qsizetype(0), qsizetype(1), kHelpSealSize, whole.size() / 2, whole.size() - 1 })
        ExpectRefused(whole.left(size));
    ExpectRefused(whole + 'x');
}

TEST_F(DamagedHelpBook, IsRefusedWithoutSeal)
{
    ExpectRefused(Contents(kBook).chopped(kHelpSealSize));
}

TEST_F(DamagedHelpBook, IsRefusedWhenSealedButNoBook)
{
    for (const QByteArray& content : { QByteArray("x"), QByteArray("ITSF"), QByteArray(10000, '\0') })
        ExpectRefused(content + HelpSeal(content));
}

TEST_F(DamagedHelpBook, LeavesNothingOfTheFormerBook)
{
    HelpFile book;
    ASSERT_TRUE(book.Open(kBook));
    EXPECT_FALSE(book.Open(FilePath(QStringLiteral("none.chm"))));
    EXPECT_FALSE(book.IsOpen());
    EXPECT_TRUE(book.Index().empty());
    EXPECT_EQ(book.TopicPath(11901), QString());
    EXPECT_TRUE(book.Search(QStringLiteral("list")).empty());
}

TEST_F(DamagedHelpBook, IsNotNeededOnceRead)
{
    const QString copy = FilePath(QStringLiteral("book.chm"));
    ASSERT_TRUE(QFile::copy(kBook, copy));
    HelpFile book;
    ASSERT_TRUE(book.Open(copy));
    ASSERT_TRUE(QFile::remove(copy));
    EXPECT_TRUE(book.Page(QStringLiteral("csv.html")));
}

} // namespace tarvik
