// The order of floors and rooms, and no widget in a module.
#include "tests/layers/includes.h"
#include "tests/layers/sourceText.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

/// The lines of a file that the build wrote.
std::vector<std::string> Lines(const std::string& path)
{
    std::ifstream in(path);
    EXPECT_TRUE(in.good()) << path;
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        if (!line.empty())
            lines.push_back(line);
    }
    return lines;
}

std::set<std::string> NamesIn(const std::string& folder)
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.is_regular_file())
            names.insert(entry.path().filename().string());
    }
    return names;
}

/// Headers of the widget libraries only: some forward to a lower library.
std::set<std::string> WidgetHeaders()
{
    std::set<std::string> names;
    for (const std::string& folder : Lines(LAYERS_WIDGET_FOLDERS))
        names.merge(NamesIn(folder));
    for (const std::string& folder : Lines(LAYERS_CORE_FOLDERS)) {
        for (const std::string& name : NamesIn(folder))
            names.erase(name);
    }
    return names;
}

std::set<std::string> ModuleSources()
{
    std::set<std::string> sources;
    for (const std::string& source : Lines(LAYERS_MODULE_SOURCES)) {
        const std::string path = std::filesystem::path(source).lexically_relative(LAYERS_ROOT).generic_string();
        if (path.ends_with(".cpp") && !path.starts_with(".."))
            sources.insert(path);
    }
    return sources;
}

std::string Joined(const std::vector<std::string>& findings)
{
    std::string text;
    for (const std::string& finding : findings)
        text += "\n  " + finding;
    return text;
}

LayerRules FakeRules()
{
    return { { "app/settings/ini.cpp", "lists/editor/csv.cpp" }, { "QWidget" } };
}

} // namespace

TEST(Layers, IncludesOfTheTreePointOnlyDown)
{
    const SourceTree tree = ReadSourceTree(LAYERS_ROOT);
    ASSERT_TRUE(tree.contains("main.cpp"));
    ASSERT_TRUE(tree.contains("app/message/message.cpp"));
    const auto findings = FindBrokenLayers(tree, { ModuleSources(), WidgetHeaders() });
    EXPECT_TRUE(findings.empty()) << Joined(findings);
}

TEST(Layers, HaveTheModulesAndWidgetHeadersOfThisBuild)
{
    EXPECT_TRUE(ModuleSources().contains("app/message/message.cpp"));
    EXPECT_FALSE(ModuleSources().contains("app/forms/form.cpp"));
    const auto headers = WidgetHeaders();
    EXPECT_TRUE(headers.contains("QWidget"));
    EXPECT_TRUE(headers.contains("QPrinter"));
    EXPECT_FALSE(headers.contains("QImage"));
    EXPECT_FALSE(headers.contains("QAction"));
}

TEST(Layers, CoreLinksNeitherWidgetsNorPrinting)
{
    const auto linked = Lines(LAYERS_CORE_LINKS);
    ASSERT_FALSE(linked.empty());
    for (const std::string& library : linked) {
        EXPECT_EQ(library.find("Widgets"), std::string::npos) << library;
        EXPECT_EQ(library.find("PrintSupport"), std::string::npos) << library;
    }
}

TEST(Layers, TarvikctlLoadsNoWidgetLibrary)
{
    std::ifstream in(LAYERS_TARVIKCTL, std::ios::binary);
    ASSERT_TRUE(in.good()) << LAYERS_TARVIKCTL;
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_NE(bytes.find("libQt6Core"), std::string::npos);
    EXPECT_EQ(bytes.find("libQt6Widgets"), std::string::npos);
    EXPECT_EQ(bytes.find("libQt6PrintSupport"), std::string::npos);
}

TEST(LayerCheck, AcceptsATreeInOrder)
{
    const SourceTree tree{ { "closed/tvgen.h", "" }, { "app/settings/ini.h", "#include \"closed/tvgen.h\"\n" },
        { "app/settings/ini.cpp", "#include \"app/settings/ini.h\"\n#include <QString>\n" },
        { "lists/editor/csv.cpp", "#include \"app/settings/ini.h\"\n" },
        { "app/about/FmAbout.h", "#include <QWidget>\n" }, { "composition.h", "" },
        { "main.cpp",
            "#include \"composition.h\"\n#include \"app/about/FmAbout.h\"\n#include \"lists/editor/csv.h\"\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()), std::vector<std::string>());
}

TEST(LayerCheck, FindsAnIncludeThatPointsUp)
{
    const SourceTree tree{ { "app/settings/ini.cpp", "\n#include \"lists/editor/csv.h\"\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()),
        std::vector<std::string>({ "app/settings/ini.cpp:2: lists/editor/csv.h points up" }));
}

TEST(LayerCheck, FindsAModuleThatIncludesTheComposition)
{
    const SourceTree tree{ { "composition.h", "" }, { "print/page/page.cpp", "#include \"composition.h\"\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()),
        std::vector<std::string>({ "print/page/page.cpp:1: composition.h points up" }));
}

TEST(LayerCheck, FindsAnIncludeThatDoesNotStartAtAFolder)
{
    const SourceTree tree{ { "app/settings/ini.cpp", "#include \"ini.h\"\n#include \"tests/support/fixture.h\"\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()),
        std::vector<std::string>({ "app/settings/ini.cpp:1: ini.h does not start at an ordered folder",
            "app/settings/ini.cpp:2: tests/support/fixture.h does not start at an ordered folder" }));
}

TEST(LayerCheck, FindsAWidgetThatAHeaderBringsIntoAModule)
{
    const SourceTree tree{ { "app/forms/form.h", "#include <QWidget>\n" },
        { "app/settings/ini.cpp", "#include \"app/forms/form.h\"\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()),
        std::vector<std::string>({ "app/settings/ini.cpp:1: app/forms/form.h points up",
            "app/forms/form.h:1: QWidget brings a widget into the module app/settings/ini.cpp" }));
}

TEST(LayerCheck, FindsAnIncludeOfAHigherRoom)
{
    const SourceTree tree{ { "app/text/lang.cpp", "#include \"app/menu/menu.h\"\n" },
        { "app/menu/menu.cpp", "#include \"app/text/ansi.h\"\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()),
        std::vector<std::string>({ "app/text/lang.cpp:1: app/menu/menu.h points up" }));
}

TEST(LayerCheck, BindersAreAboveTheRoomsOfTheirFloor)
{
    const SourceTree tree{ { "link/bindLink.cpp", "#include \"link/files/drives.h\"\n" },
        { "link/control/controlGeneral.cpp", "#include \"link/bindLink.h\"\n" },
        { "screen/files/document.cpp", "#include \"link/bindLink.h\"\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()),
        std::vector<std::string>({ "link/control/controlGeneral.cpp:1: link/bindLink.h points up" }));
}

TEST(LayerCheck, FindsAFileOutsideRooms)
{
    const SourceTree tree{ { "app/misc/a.cpp", "" }, { "app/text/deep/b.cpp", "" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()),
        std::vector<std::string>({ "app/misc/a.cpp lies in no room", "app/text/deep/b.cpp lies in no room" }));
}

TEST(LayerCheck, EditorsDoNotReachIntoEachOther)
{
    const SourceTree tree{ { "lists/antenna/a.cpp",
        "#include \"lists/memory/m.h\"\n#include \"lists/antenna/a.h\"\n#include \"lists/editor/csv.h\"\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()),
        std::vector<std::string>({ "lists/antenna/a.cpp:1: lists/memory/m.h reaches into another editor's room" }));
}

TEST(LayerCheck, FindsACycleWithinARoom)
{
    const SourceTree tree{ { "app/text/a.cpp", "#include \"app/text/b.h\"\n" },
        { "app/text/b.cpp", "#include \"app/text/c.h\"\n" }, { "app/text/c.h", "#include \"app/text/a.h\"\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()),
        std::vector<std::string>({ "cycle: app/text/a -> app/text/b -> app/text/c -> app/text/a" }));
}

TEST(LayerCheck, FindsACycleThatASourceClosesForAHeaderWhoseFunctionItDefines)
{
    const SourceTree tree{ { "link/files/job.h", "namespace tarvik {\n/// Sends.\nvoid JobPut(int list);\n}\n" },
        { "link/files/jobPut.cpp",
            "#include \"link/files/job.h\"\n#include \"link/files/dates.h\"\n"
            "namespace tarvik {\nvoid JobPut(int list)\n{\n    SetDate();\n}\n}\n" },
        { "link/files/dates.h", "void SetDate();\n" },
        { "link/files/dates.cpp",
            "#include \"link/files/dates.h\"\n#include \"link/files/job.h\"\nvoid SetDate() { }\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()),
        std::vector<std::string>({ "cycle: link/files/dates -> link/files/job -> link/files/dates" }));
}

TEST(LayerCheck, FindsACycleThatASourceClosesForAClassWhoseMembersItDefines)
{
    const SourceTree tree{ { "app/frame/Frame.h", "class Frame {\n    void Bind();\n};\n" },
        { "app/frame/FrameHooks.cpp",
            "#include \"app/frame/Frame.h\"\n#include \"app/frame/bar.h\"\nvoid Frame::Bind()\n{\n}\n" },
        { "app/frame/bar.cpp", "#include \"app/frame/Frame.h\"\n#include \"app/frame/bar.h\"\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()),
        std::vector<std::string>({ "cycle: app/frame/Frame -> app/frame/bar -> app/frame/Frame" }));
}

TEST(LayerCheck, CallsAndUnnamedNamespacesJoinNothing)
{
    const SourceTree tree{ { "app/text/a.h", "void A();\nvoid Help();\n" }, { "app/text/b.h", "void B();\n" },
        { "app/text/b.cpp", "#include \"app/text/a.h\"\nnamespace {\nvoid Help() { }\n}\nvoid B()\n{\n    A();\n}\n" },
        { "app/text/a.cpp", "#include \"app/text/a.h\"\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()), std::vector<std::string>());
}

TEST(SourceText, ReadsWhatIsDeclaredAndDefinedAtNamespaceScope)
{
    const ScopeNames names = NamesAtNamespaceScope(R"(// void Comment();
#define MACRO(x) void x() { }
namespace tarvik {
struct Point { int X = 0; void Move(); };
class Ahead;
inline constexpr int kSize = Compute(3);
[[nodiscard]] bool Declared(const std::function<void(int)>& work = {});
const char* kText = "void Quoted();";
std::function<void()>& Returned();
namespace {
void Hidden() { }
}
template <typename Value>
Value Templated(Value value) { return value; }
void Point::Move()
{
    if (X) { Call(); }
}
Ahead::Ahead() : a_{ 1 }, b_({}) { }
void Defined() { }
}
)");
    EXPECT_EQ(names.Declared, (std::set<std::string>{ "Declared", "Returned", "Templated", "Defined" }));
    EXPECT_EQ(names.Defined, (std::set<std::string>{ "Templated", "Defined" }));
    EXPECT_EQ(names.Types, std::set<std::string>{ "Point" });
    EXPECT_EQ(names.MembersOf, (std::set<std::string>{ "Point", "Ahead" }));
}

TEST(SourceText, FindsStaticVariables)
{
    const std::vector<StaticVariable> found = StaticVariablesOf(R"(namespace tarvik {
namespace {
const QString kSection = QStringLiteral("File");
constexpr std::array kNumbers{ 1, 2 };
int counter = 0;
std::vector<int> numbers{ 1 };
QString folder;
const char* name = "static int quoted;";
} // namespace static int comment;
inline bool linkIsUp = false;
using Views = std::array<int, 4>;
struct Point {
    static int count;
    static Point Origin();
    static constexpr int kMost = 3;
    int x = 0;
};
State& TheState()
{
    static ProcessState<State> state(Defaults);
    static const QRegularExpression tag("x");
    static thread_local std::map<int, std::vector<int>> cache;
    int local = 0;
    return state.Get();
}
}
)");
    std::vector<std::string> names;
    for (const StaticVariable& variable : found)
        names.push_back(variable.Name + ":" + std::to_string(variable.Line));
    EXPECT_EQ(names,
        (std::vector<std::string>{
            "counter:5", "numbers:6", "folder:7", "name:8", "linkIsUp:10", "count:13", "state:20", "cache:22" }));
    EXPECT_EQ(found[6].Type, "static ProcessState<State> ");
    EXPECT_EQ(found[6].Function, "TheState");
}
