#include "app/forms/controlValues.h"

#include "tests/support/fixture.h"

#include <QFontMetrics>
#include <QLabel>
#include <QRadioButton>

namespace tarvik {

TEST(ControlValues, WidestTextAmongTheFirstOnes)
{
    const QLabel label;
    const QFontMetrics metrics(label.font());
    const QStringList texts({ "i", "", "mmmm", "mmmmmmmm" });
    EXPECT_EQ(StrMaxWidth(&label, texts, 3), metrics.horizontalAdvance("mmmm"));
    EXPECT_EQ(StrMaxWidth(&label, texts, 99), metrics.horizontalAdvance("mmmmmmmm"));
    EXPECT_EQ(StrMaxWidth(&label, texts, 0), 0);
    EXPECT_EQ(StrMaxWidth(&label, texts, -1), 0);
    EXPECT_EQ(StrMaxWidth(&label, {}, 3), 0);
}

TEST(ControlValues, OptionIsReadAndWritten)
{
    QRadioButton option;
    EXPECT_FALSE(OptionGet(&option));
    OptionSet(&option, true);
    EXPECT_TRUE(OptionGet(&option));
}

} // namespace tarvik
