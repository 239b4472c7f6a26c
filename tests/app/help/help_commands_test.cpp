// The help commands: which one asks the viewer for what, and what is said when it can't.
#include "app/help/help.h"
#include "app/platform/seams.h"
#include "tests/support/fixture.h"

namespace tarvik {

namespace {

class HelpCommands : public ProgramTest {
protected:
    HelpCommands()
    {
        TheHelpHooks().ShowContents = [this] { return Note(QStringLiteral("contents")); };
        TheHelpHooks().ShowIndex = [this] { return Note(QStringLiteral("index")); };
        TheHelpHooks().ShowSearch = [this](const QString& query) { return Note(QStringLiteral("search ") + query); };
        TheHelpHooks().ShowTopic = [this](int number) { return Note(QStringLiteral("topic %1").arg(number)); };
        TheHelpHooks().ShowAbout = [this] { Note(QStringLiteral("about")); };
        TheSeams().OpenUrl = [this](const QUrl& url) { return Note(url.toString()); };
    }

    bool Note(const QString& what)
    {
        done_.append(what);
        return canShow_;
    }

    QStringList done_;
    bool canShow_ = true;
};

} // namespace

TEST_F(HelpCommands, AskTheViewerByHelpNumber)
{
    for (int number : { 11901, 11971, 11973, 11975 })
        HelpCommand(number);
    EXPECT_EQ(done_, QStringList({ "about", "contents", "index", "search help-1" }));
}

TEST_F(HelpCommands, OpenTheMakersSite)
{
    HelpCommand(11979);
    ASSERT_EQ(done_.size(), 1);
    EXPECT_TRUE(done_[0].startsWith(QLatin1String("https://")));
}

TEST_F(HelpCommands, IgnoreOtherNumbers)
{
    for (int number : { 0, -1, 11902, 11977, 12702 })
        HelpCommand(number);
    EXPECT_EQ(done_, QStringList());
}

TEST_F(HelpCommands, ShowTheTopicOfANumber)
{
    ShowHelp(10738);
    EXPECT_EQ(done_, QStringList({ "topic 10738" }));
}

TEST_F(HelpCommands, TellTheNumberOfATopicThatCannotBeShown)
{
    canShow_ = false;
    Answers().Expect(12702, { QStringLiteral("10738") }, Ok);
    ShowHelp(10738);
}

TEST_F(HelpCommands, TellTheNumberOfACommandThatFailed)
{
    canShow_ = false;
    for (int number : { 11971, 11973, 11975 }) {
        Answers().Expect(12702, { QString::number(number) }, Ok);
        HelpCommand(number);
    }
}

TEST_F(HelpCommands, TellTheNumberWithoutViewer)
{
    TheHelpHooks() = {};
    Answers().Expect(12702, { QStringLiteral("11971") }, Ok);
    HelpCommand(11971);
    Answers().Expect(12702, { QStringLiteral("5") }, Ok);
    ShowHelp(5);
    HelpCommand(11901);
}

TEST_F(HelpCommands, StaySilentWhileAMessageIsShowing)
{
    canShow_ = false;
    TheMessage().Showing = true;
    ShowHelp(12702);
    HelpCommand(11971);
    TheMessage().Showing = false;
}

} // namespace tarvik
