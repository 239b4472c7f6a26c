// Size, place and title of the form of data set windows.
#include "screen/document/description.h"
#include "screen/window/descriptionEdit.h"
#include "tests/screen/diagram/dataset_form_fixture.h"

#include <QScreen>

namespace tarvik {

TEST_F(DatasetForm, OpensInTheMiddleOfTheScreen)
{
    Run([](FmDatasetViewer& form) {
        const QPoint off = form.frameGeometry().center() - form.screen()->availableGeometry().center();
        EXPECT_LT(std::abs(off.x()), 20);
        EXPECT_LT(std::abs(off.y()), 40);
    });
}

TEST_F(DatasetForm, PictureKeepsItsSmallestSizeAboveTheDescription)
{
    Run([&](FmDatasetViewer& form) {
        DescrSetVisible(true, id);
        DescrSetText(id, QStringLiteral("mast\r\nsouth"));
        form.resize(10, 10);
        QCoreApplication::processEvents();
        EXPECT_EQ(Graph(form).size(), QSize(320, 200));
        EXPECT_EQ(form.height(), 200 + DescrHeight(id));
        DescrSetVisible(false, id);
        form.resize(10, 10);
        QCoreApplication::processEvents();
        EXPECT_EQ(form.size(), QSize(320, 200));
    });
}

TEST_F(DatasetForm, GrowsNoLargerThanTheScreen)
{
    Run([&](FmDatasetViewer& form) {
        const int most = form.screen()->availableSize().height();
        form.resize(792, most - 20);
        QCoreApplication::processEvents();
        DescrSetVisible(true, id);
        DescrSetText(id, QStringLiteral("mast\r\nsouth"));
        QCoreApplication::processEvents();
        EXPECT_GT(DescrHeight(id), 20);
        EXPECT_LE(form.height(), most);
        EXPECT_EQ(Graph(form).height(), form.height() - DescrHeight(id));
    });
}

TEST_F(DatasetForm, MovesUpWhenItsDescriptionNeedsRoom)
{
    Run([&](FmDatasetViewer& form) {
        const QRect area = form.screen()->availableGeometry();
        form.move(form.x(), area.bottom() - form.frameGeometry().height());
        const int before = form.y();
        DescrSetVisible(true, id);
        DescrSetText(id, QStringLiteral("mast\r\nsouth"));
        QCoreApplication::processEvents();
        EXPECT_LT(form.y(), before);
        EXPECT_LE(form.frameGeometry().bottom(), area.bottom());
    });
}

TEST_F(DatasetForm, ShowsTheDiagramAloneWhileItIsMaximised)
{
    Run([&](FmDatasetViewer& form) {
        DescrSetVisible(true, id);
        DescrSetText(id, QStringLiteral("mast\r\nsouth"));
        form.showMaximized();
        QCoreApplication::processEvents();
        const QSize whole = form.size();
        EXPECT_EQ(static_cast<ScreenView&>(form).State(), WinState::Maximised);
        EXPECT_FALSE(Description(form).isVisible());
        EXPECT_EQ(Graph(form).size(), whole);
        static_cast<ScreenView&>(form).SetClientSize({ 400, 300 });
        EXPECT_EQ(form.size(), whole) << "it stays maximised";
        form.showNormal();
        QCoreApplication::processEvents();
        EXPECT_TRUE(Description(form).isVisible());
        EXPECT_EQ(Graph(form).height(), form.height() - DescrHeight(id));
    });
}

TEST_F(DatasetForm, DraggingItsBorderRedrawsItAfterwards)
{
    Run([&](FmDatasetViewer& form) {
        QTest::mousePress(form.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
        form.resize(500, 400);
        QCoreApplication::processEvents();
        EXPECT_TRUE(WindowAt(id).ResizePending);
        EXPECT_EQ(PictureOf(id)->Graph.size(), QSize(792, 560));
        QTest::mouseRelease(form.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
        CheckPendingResize(false);
        EXPECT_EQ(PictureOf(id)->Graph.size(), QSize(500, 400));
    });
}

TEST_F(DatasetForm, NameIsShownAsItIs)
{
    MultiTraceInput input = KfactorInput();
    input.Name = QStringLiteral("K[*]-Factor");
    Run(
        [](FmDatasetViewer& form) {
            EXPECT_EQ(form.windowHandle()->title(), "K[*]-Factor");
            EXPECT_EQ(Graph(form).accessibleName(), "K[*]-Factor");
            EXPECT_EQ(static_cast<ScreenView&>(form).Caption(), "K[*]-Factor");
        },
        input);
}

TEST_F(DatasetForm, OtherMouseButtonsOpenNoPopup)
{
    Run([](FmDatasetViewer& form) {
        QTest::mouseClick(&Graph(form), Qt::LeftButton, {}, QPoint(50, 50));
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        QTest::mouseClick(&Graph(form), Qt::RightButton, {}, QPoint(50, 50));
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        QApplication::activePopupWidget()->close();
    });
}

TEST_F(DatasetForm, HidesTheDescriptionAlsoIfMaximisingKeepsTheSize)
{
    Run([&](FmDatasetViewer& form) {
        DescrSetVisible(true, id);
        DescrSetText(id, QStringLiteral("mast"));
        form.setGeometry(form.screen()->availableGeometry());
        QCoreApplication::processEvents();
        EXPECT_TRUE(Description(form).isVisible());
        form.showMaximized();
        QCoreApplication::processEvents();
        EXPECT_FALSE(Description(form).isVisible());
    });
}

} // namespace tarvik
