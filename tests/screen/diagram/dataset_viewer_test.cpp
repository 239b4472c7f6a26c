// Data set windows, without their form.
#include "screen/diagram/datasetViewer.h"

#include "app/state/project.h"
#include "closed/loader.h"
#include "screen/document/compose.h"
#include "screen/document/description.h"
#include "screen/files/document.h"
#include "screen/files/pictureFile.h"
#include "screen/window/arrange.h"
#include "screen/window/closing.h"
#include "screen/window/descriptionEdit.h"
#include "screen/window/palette.h"
#include "tests/screen/diagram/diagram_fixture.h"
#include "tests/support/screens.h"
#include "tests/support/unbindModule.h"

#include <functional>

namespace tarvik {

namespace {

constexpr QRgb kRed = 0xFFFF0000;

/// Runs a function while a data set is shown, with a fake view.
class DatasetWindows : public ScreenTest, public DatasetForms {
protected:
    DatasetWindows()
    {
        TheDatasetForms().Set(*this);
    }

    ~DatasetWindows() override
    {
        TheDatasetForms().Reset();
    }

    bool ShowModal(WindowId window, const QString& name) override
    {
        ++shown;
        id = window;
        caption = name;
        auto owned = std::make_shared<FakeView>();
        view = owned.get();
        ViewSet(id, owned);
        SizeNewWindow(id);
        during();
        view = nullptr;
        return true;
    }

    bool Show(const std::function<void()>& act, const MultiTraceInput& input = KfactorInput())
    {
        during = act;
        return DatasetShow(input);
    }

    static Diagram& Document(WindowId window)
    {
        return dynamic_cast<Diagram&>(*PictureOf(window));
    }

    static bool HasRed(const QImage& picture)
    {
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixel(x, y) == kRed)
                    return true;
            }
        }
        return false;
    }

    std::function<void()> during = [] {};
    FakeView* view = nullptr;
    WindowId id = 0;
    QString caption;
    int shown = 0;
};

} // namespace

TEST_F(DatasetWindows, TakeASlotOfTheirType)
{
    EXPECT_TRUE(Show([&] {
        const WindowRecord& record = WindowAt(id);
        EXPECT_EQ(record.Type, WindowType::DataSet);
        EXPECT_EQ(record.Subtype, WindowSubtype::DataSet);
        EXPECT_EQ(record.DocumentIndex, 1);
        EXPECT_EQ(record.Placement.Left, kPlacedBySystem);
        EXPECT_EQ(record.Placement.Top, kPlacedBySystem);
        EXPECT_EQ(record.DefaultWidth, 792);
        EXPECT_EQ(record.DefaultHeight, 560);
        EXPECT_FALSE(record.DescriptionVisible);
        EXPECT_EQ(record.DescriptionColumns, 90);
        EXPECT_TRUE(record.GraphicsValid);
        EXPECT_FALSE(record.Modified);
        EXPECT_EQ(Document(id).Style.Id, id);
        EXPECT_EQ(Document(id).Style.DocumentIndex, 1);
        EXPECT_EQ(WindowTable().Active, id);
        EXPECT_EQ(caption, "Biconical 30-1000");
        EXPECT_EQ(view->Graph, QSize(792, 560));
        EXPECT_TRUE(HasRed(Document(id).Graph));
    }));
    EXPECT_EQ(shown, 1);
}

TEST_F(DatasetWindows, AreFreedWhenClosed)
{
    uint32_t handle = 0;
    Show([&] { handle = Document(id).Traces.Set.Traces[0].Handle; });
    EXPECT_FALSE(WindowInUse(id));
    EXPECT_EQ(ViewOf(id), nullptr);
    EXPECT_EQ(DatasetTable()[1], nullptr);
    uint32_t size = 0;
    EXPECT_EQ(TraceBlockOf(handle, &size), nullptr);
    EXPECT_EQ(WindowCount(), 0);
}

TEST_F(DatasetWindows, FormerWindowIsActiveAgain)
{
    const WindowId first = Open();
    Open();
    WindowSetActive(first);
    Show([&] { EXPECT_NE(WindowTable().Active, first); });
    EXPECT_EQ(WindowTable().Active, first);
    EXPECT_EQ(Frame.Log.last(), "menu");
}

TEST_F(DatasetWindows, ProgramIsBusyWhileConvertingOnly)
{
    bool wasIdle = true;
    TvGen().GenVbStrToGlobal = [](const char*, int32_t) -> void* {
        EXPECT_FALSE(Program().Idle);
        return nullptr;
    };
    EXPECT_FALSE(Show([] {}));
    EXPECT_TRUE(Program().Idle);
    BindModules();
    Show([&] { wasIdle = Program().Idle; });
    EXPECT_TRUE(wasIdle);
}

TEST_F(DatasetWindows, NothingIsShownWithoutAPoint)
{
    EXPECT_FALSE(Show([] {}, KfactorInput(0)));
    EXPECT_EQ(shown, 0);
    EXPECT_EQ(WindowCount(), 0);
}

TEST_F(DatasetWindows, NothingIsShownWithoutTheModuleOfTraces)
{
    const WindowId before = Open();
    UnbindModule(Module::Traces);
    EXPECT_FALSE(Show([] {}));
    EXPECT_EQ(shown, 0);
    EXPECT_EQ(WindowCount(), 1);
    EXPECT_EQ(WindowTable().Active, before);
}

TEST_F(DatasetWindows, NothingIsShownWithoutMemory)
{
    TvGen().GenVbStrToGlobal = [](const char*, int32_t) -> void* { return nullptr; };
    EXPECT_FALSE(Show([] {}));
    EXPECT_EQ(shown, 0);
    EXPECT_EQ(WindowCount(), 0);
}

TEST_F(DatasetWindows, NothingIsShownWithoutForms)
{
    TheDatasetForms().Reset();
    EXPECT_FALSE(DatasetShow(KfactorInput()));
    EXPECT_EQ(WindowCount(), 0);
}

TEST_F(DatasetWindows, FullTableIsReported)
{
    for (WindowId each = 1; each <= kWindowSlots; ++each)
        WindowTable().Table[static_cast<size_t>(each)].Type = WindowType::Screen;
    Answers().Expect(12711, Ok);
    EXPECT_FALSE(Show([] {}));
    EXPECT_EQ(shown, 0);
}

TEST_F(DatasetWindows, NewDiagramReplacesTheFormerOne)
{
    Show([&] {
        const WindowId former = id;
        during = [&] {
            EXPECT_EQ(WindowCount(WindowType::DataSet), 1);
            EXPECT_EQ(caption, "second");
        };
        MultiTraceInput second = KfactorInput(3, 1);
        second.Name = QStringLiteral("second");
        EXPECT_TRUE(DatasetShow(second));
        EXPECT_FALSE(WindowInUse(former));
    });
    EXPECT_EQ(shown, 2);
}

TEST_F(DatasetWindows, KeepNoAspectRatio)
{
    Show([&] {
        view->Client = { 500, 1000 };
        ScreenResized(id, false);
        EXPECT_EQ(view->Client, QSize(500, 1000));
        EXPECT_EQ(view->Graph, QSize(500, 1000));
        EXPECT_EQ(Document(id).Graph.size(), QSize(500, 1000));
    });
}

TEST_F(DatasetWindows, ResizeWaitsForTheMouseButton)
{
    Show([&] {
        view->Client = { 500, 400 };
        ScreenResized(id, true);
        EXPECT_TRUE(WindowAt(id).ResizePending);
        EXPECT_EQ(view->Graph, QSize(792, 560));
        CheckPendingResize(false);
        EXPECT_EQ(view->Graph, QSize(500, 400));
    });
}

TEST_F(DatasetWindows, AreDrawnSharplyForTheirScreen)
{
    Show([&] {
        const QImage sharp = DrawnPicture(id, { 1584, 1120 });
        EXPECT_EQ(sharp, Document(id).Draw({ 1584, 1120 }, 2));
        EXPECT_NE(sharp, Document(id).Draw({ 1584, 1120 }, 1));
        EXPECT_EQ(DrawnPicture(id, { 792, 560 }).constBits(), Document(id).Graph.constBits());
    });
}

TEST_F(DatasetWindows, KeepTheirNameAsCaption)
{
    Show([&] {
        view->Title = QStringLiteral("name");
        DrawScreenWindow(id);
        EXPECT_EQ(view->Title, "name");
        view->Title.clear();
        EXPECT_EQ(ScreenTitle(id), "Diagram");
    });
}

TEST_F(DatasetWindows, HavePaperAndTextColours)
{
    Show([&] {
        EXPECT_EQ(PaperColor(id), 0xCECBCEU);
        EXPECT_EQ(TextColor(id), 0U);
        EXPECT_EQ(view->Paper, 0xCECBCEU);
        PaletteSet(PaletteNumber::BlackAndWhite, id, true);
        EXPECT_EQ(view->Paper, 0xFFFFFFU);
    });
}

TEST_F(DatasetWindows, LeaveTheColoursOfScreensAlone)
{
    TheColorDefaults().Background = 0x123456;
    TheColorDefaults().Text = 0x654321;
    Show([] {});
    EXPECT_EQ(TheColorDefaults().Background, 0x123456U);
    EXPECT_EQ(TheColorDefaults().Text, 0x654321U);
}

TEST_F(DatasetWindows, CanBeShownInBlackAndWhite)
{
    Show([&] {
        PaletteChoice choice(id);
        choice.Choose(PaletteNumber::BlackAndWhite);
        EXPECT_TRUE(BlackAndWhite());
        EXPECT_FALSE(HasRed(Document(id).Graph));
        choice.Cancel();
        EXPECT_TRUE(HasRed(Document(id).Graph));
        EXPECT_EQ(TheColorDefaults().PalNr, PaletteNumber::Colour);
    });
}

TEST_F(DatasetWindows, DescriptionMakesTheWindowHigher)
{
    Show([&] {
        DescrSetVisible(true, id);
        EXPECT_TRUE(DescrSetText(id, QStringLiteral("mast\r\nsouth")));
        EXPECT_EQ(view->Graph, QSize(792, 560));
        EXPECT_EQ(view->Client, QSize(792, 560 + DescrHeight(id)));
        EXPECT_TRUE(view->Layout.Visible);
        DescrSetVisible(false, id);
        EXPECT_EQ(view->Client, QSize(792, 560));
    });
}

TEST_F(DatasetWindows, CopyComposesPictureAndDescription)
{
    Views.TakesCopies = true;
    Show([&] {
        CopyGraphics(id);
        EXPECT_EQ(Views.Copied, Document(id).Graph);
        DescrSetVisible(true, id);
        DescrSetText(id, QStringLiteral("mast south"));
        CopyGraphics(id);
        EXPECT_EQ(Views.Copied.size(), QSize(792, 560 + DescrHeight(id)));
        EXPECT_EQ(Views.Copied.copy(0, 0, 792, 560), Document(id).Graph);
        EXPECT_EQ(Views.Copied.pixel(0, 561), 0xFFCECBCE);
        EXPECT_EQ(Views.Copied.pixel(0, 560), 0xFF000000) << "the line between";
    });
}

TEST_F(DatasetWindows, AreSavedInFourFormats)
{
    const std::vector<std::pair<const char*, ImageKind>> formats{ { "a.png", ImageKind::Png },
        { "a.bmp", ImageKind::Bitmap }, { "a.pcx", ImageKind::Pcx }, { "a.wmf", ImageKind::Metafile } };
    Show([&] {
        for (const auto& [name, kind] : formats) {
            ASSERT_TRUE(ImgSave(FilePath(name), kind, id)) << name;
            EXPECT_EQ(ImgRead(FilePath(name), kind), ComposeWindow(id)) << name;
        }
        EXPECT_EQ(view->Title, "") << "the caption stays";
    });
}

TEST_F(DatasetWindows, CloseWithoutQuestion)
{
    Show([&] {
        WindowAt(id).Modified = true;
        EXPECT_TRUE(CloseQuestion(id, true));
        EXPECT_TRUE(CloseQuestion(0, false));
    });
}

TEST_F(DatasetWindows, CascadeRestoresTheirDefaultSize)
{
    Show([&] {
        view->Client = { 400, 300 };
        ScreenResized(id, false);
        ArrangeWindows(Arrangement::Cascade);
        EXPECT_EQ(view->Graph, QSize(792, 560));
    });
}

TEST_F(DatasetWindows, AreNotTiledWithTheFramesWindows)
{
    Open();
    Program().AutoTile = true;
    int tilings = 0;
    Views.WhenArranged = [&tilings](Arrangement) { ++tilings; };
    Show([] { RetileIfAutoTile(); });
    EXPECT_EQ(tilings, 0) << "there is one child window";
    Open();
    Show([] { RetileIfAutoTile(); });
    EXPECT_EQ(tilings, 1) << "closing the data set arranges nothing";
}

TEST_F(DatasetWindows, AreOfferedForSelection)
{
    const WindowId screen = OpenLive();
    Show([&] {
        QVector<WindowId> offered;
        Views.WhenOffered = [&](const QVector<WindowId>& ids) {
            offered = ids;
            return ids;
        };
        ChooseWindows(MaskAll, false);
        EXPECT_EQ(offered, (QVector<WindowId>{ id, screen }));
        ChooseWindows(MaskDataSet, false);
        EXPECT_EQ(TheScreenWindows().Chosen, QVector<WindowId>{ id });
    });
}

TEST_F(DatasetWindows, LastWindowShowsTheHint)
{
    Frame.Active = true;
    Show([] {});
    EXPECT_EQ(Frame.Status, LngStr(11801));
}

} // namespace tarvik
