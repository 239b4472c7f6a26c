// The form that asks for folder and type of a conversion.
#include "tests/support/forms.h"

#include "app/platform/seams.h"
#include "app/text/lang.h"
#include "link/documents/FmFileConvert.h"
#include "link/documents/fileConvert.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QLineEdit>

namespace tarvik {

namespace {

class ConvertForm : public FormTest {
protected:
    ConvertForm()
    {
        FileConvert().Sources = { FilePath("a.bmp") };
    }

    QString FolderText()
    {
        return QDir::toNativeSeparators(Folder().chopped(1));
    }

    FmFileConvert form;
};

} // namespace

TEST_F(ConvertForm, HasItsControlsInOrder)
{
    RunForm(form, [this] {
        ExpectControls(form, { "CbType", "TbDir", "BtBrowse", "LbType", "LbDir", "BtClose", "BtCancel", "BtHelp" });
        ExpectTabOrder(form);
        ExpectNothingClipped(form);
        EXPECT_EQ(form.HelpNumber(), 11401);
        EXPECT_EQ(TextOf(form, "CbType"), "Windows bitmap");
        EXPECT_EQ(TextOf(form, "TbDir"), FolderText());
        form.Unload();
    });
}

TEST_F(ConvertForm, LongFoldersAreShownWhole)
{
    FileConvert().Sources = { "/srv/" + QString(70, u'a') + "/a.bmp" };
    RunForm(form, [this] {
        auto& box = Find<QLineEdit>(form, "TbDir");
        EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(box.text()));
        const int before = form.width();
        TheSeams().BrowseFolder = [](const FolderQuestion&) { return "/" + QString(1000, u'w'); };
        Click(form, "BtBrowse");
        QCoreApplication::processEvents();
        EXPECT_LT(form.width(), 2 * before);
        form.Unload();
    });
}

TEST_F(ConvertForm, UnknownSourcesAskForAType)
{
    FileConvert().Sources = { FilePath("a.doc") };
    RunForm(form, [this] {
        EXPECT_EQ(TextOf(form, "CbType"), LngStr(11005));
        EXPECT_EQ(Find<QComboBox>(form, "CbType").count(), 7);
        form.Unload();
    });
}

TEST_F(ConvertForm, OkStoresFolderAndType)
{
    RunForm(form, [this] {
        Find<QComboBox>(form, "CbType").setCurrentText(LngStr(11605));
        Type(form, "TbDir", FilePath("new"));
        Click(form, "BtClose");
    });
    EXPECT_TRUE(form.IsAccepted());
    EXPECT_EQ(FileConvert().TargetFolder, FilePath("new"));
    EXPECT_EQ(FileConvert().TargetExtension, ".png");
    EXPECT_TRUE(QDir(FilePath("new")).exists());
}

TEST_F(ConvertForm, FailedFolderKeepsFormOpenAndFocus)
{
    Answers().Expect(12752, Ok);
    RunForm(form, [this] {
        Type(form, "TbDir", FilePath("one/two"));
        Click(form, "BtClose");
        EXPECT_TRUE(form.IsLoaded());
        EXPECT_TRUE(HasFocus(form, "TbDir"));
        Click(form, "BtCancel");
    });
    EXPECT_FALSE(form.IsAccepted());
}

TEST_F(ConvertForm, CancelAndEscapeDoNotAccept)
{
    RunForm(form, [this] { Click(form, "BtClose"); });
    ASSERT_TRUE(form.IsAccepted());
    RunForm(form, [this] { Click(form, "BtCancel"); });
    EXPECT_FALSE(form.IsAccepted());
    RunForm(form, [this] { Key(form, "TbDir", Qt::Key_Escape); });
    EXPECT_FALSE(form.IsAccepted());
}

TEST_F(ConvertForm, BrowseStartsAtFolderAndReplacesIt)
{
    FolderQuestion asked;
    TheSeams().BrowseFolder = [&](const FolderQuestion& question) {
        asked = question;
        return FilePath("chosen");
    };
    RunForm(form, [this] {
        Click(form, "BtBrowse");
        EXPECT_EQ(TextOf(form, "TbDir"), FilePath("chosen"));
        TheSeams().BrowseFolder = [](const FolderQuestion&) { return QString(); };
        Click(form, "BtBrowse");
        EXPECT_EQ(TextOf(form, "TbDir"), FilePath("chosen")) << "cancelled";
        form.Unload();
    });
    EXPECT_EQ(asked.Title, LngStr(12753));
    EXPECT_EQ(asked.Start, FolderText());
}

} // namespace tarvik
