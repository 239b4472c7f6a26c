// The help commands: their requests to the viewer, and the message when it fails.
#include "app/help/help.h"
#include "app/platform/seams.h"
#include "closed/loader.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/fakeHelp.h"
#include "tests/support/fixture.h"

namespace tarvik {

namespace {

class HelpCommands : public ProgramTest {
protected:
    HelpCommands()
    {
        TheSeams().OpenUrl = [this](const QUrl& url) {
            urls_.append(url.toString());
            return opens_;
        };
    }

    /// A language whose text 12010 is that of 11504, ".bmp".
    static void SetSite()
    {
        static decltype(TvLngApi::LngGetStr) real = nullptr;
        real = TvLng().LngGetStr;
        TvLng().LngGetStr = [](int32_t id, const char* fallback, char* out, int32_t size) {
            return real(id == 12010 ? 11504 : id, fallback, out, size);
        };
    }

    FakeFrame frame_;
    std::optional<FakeHelp> help_{ std::in_place };
    QStringList urls_;
    bool opens_ = true;
};

} // namespace

TEST_F(HelpCommands, AskTheViewerByHelpNumber)
{
    for (int number : { 11971, 11973, 11975 })
        HelpCommand(number);
    EXPECT_EQ(help_->Asked, QStringList({ "contents", "index", "search help-1" }));
    EXPECT_EQ(frame_.Abouts, 0);
}

TEST_F(HelpCommands, AskTheFrameForAbout)
{
    HelpCommand(11901);
    EXPECT_EQ(frame_.Abouts, 1);
    EXPECT_EQ(help_->Asked, QStringList());
}

TEST_F(HelpCommands, ShowTheTopicOfSupportWithoutASite)
{
    HelpCommand(11979);
    EXPECT_EQ(help_->Asked, QStringList({ "topic 11979" }));
    EXPECT_EQ(urls_, QStringList());
    help_->CanShow = false;
    Answers().Expect(12702, { QStringLiteral("11979") }, Ok);
    HelpCommand(11979);
}

TEST_F(HelpCommands, OpenTheSiteOfSupport)
{
    SetSite();
    HelpCommand(11979);
    EXPECT_EQ(urls_, QStringList({ ".bmp" }));
    EXPECT_EQ(help_->Asked, QStringList());
}

TEST_F(HelpCommands, ReportASiteThatCannotBeOpened)
{
    SetSite();
    opens_ = false;
    Answers().Expect(12930, { QStringLiteral(".bmp") }, Ok);
    HelpCommand(11979);
    EXPECT_EQ(urls_.size(), 1);
}

TEST_F(HelpCommands, IgnoreOtherNumbers)
{
    for (int number : { 0, -1, 11902, 11977, 12702 })
        HelpCommand(number);
    EXPECT_EQ(help_->Asked, QStringList());
    EXPECT_EQ(frame_.Abouts, 0);
    EXPECT_EQ(urls_, QStringList());
}

TEST_F(HelpCommands, ShowTheTopicOfANumber)
{
    ShowHelp(10738);
    EXPECT_EQ(help_->Asked, QStringList({ "topic 10738" }));
}

TEST_F(HelpCommands, ReportATopicThatCannotBeShown)
{
    help_->CanShow = false;
    Answers().Expect(12702, { QStringLiteral("10738") }, Ok);
    ShowHelp(10738);
}

TEST_F(HelpCommands, ReportACommandThatFailed)
{
    help_->CanShow = false;
    for (int number : { 11971, 11973, 11975 }) {
        Answers().Expect(12702, { QString::number(number) }, Ok);
        HelpCommand(number);
    }
}

TEST_F(HelpCommands, ReportTheNumberWithoutViewer)
{
    help_.reset();
    Answers().Expect(12702, { QStringLiteral("11971") }, Ok);
    HelpCommand(11971);
    Answers().Expect(12702, { QStringLiteral("5") }, Ok);
    ShowHelp(5);
    HelpCommand(11901);
}

TEST_F(HelpCommands, StaySilentWhileAMessageIsShowing)
{
    help_->CanShow = false;
    TheMessage().Showing = true;
    ShowHelp(12702);
    HelpCommand(11971);
    TheMessage().Showing = false;
}

} // namespace tarvik
