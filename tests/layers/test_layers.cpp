// The order of the folders: closed < app < link < screen < lists < print < tools, and no widget in a module.
#include "tests/layers/includes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

/// Each line of a file that the build wrote.
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

/// Headers that only the widget libraries have: some names forward to a header of a lower library.
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
    return { { "app/ini.cpp", "lists/csv.cpp" }, { "QWidget" } };
}

} // namespace

TEST(Layers, IncludesOfTheTreePointOnlyDown)
{
    const SourceTree tree = ReadSourceTree(LAYERS_ROOT);
    ASSERT_TRUE(tree.contains("main.cpp"));
    ASSERT_TRUE(tree.contains("app/message.cpp"));
    const auto findings = FindBrokenLayers(tree, { ModuleSources(), WidgetHeaders() });
    EXPECT_TRUE(findings.empty()) << Joined(findings);
}

TEST(Layers, KnowTheModulesAndTheWidgetHeadersOfThisBuild)
{
    EXPECT_TRUE(ModuleSources().contains("app/message.cpp"));
    EXPECT_FALSE(ModuleSources().contains("app/form.cpp"));
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
    const SourceTree tree{ { "closed/tvgen.h", "" }, { "app/ini.h", "#include \"closed/tvgen.h\"\n" },
        { "app/ini.cpp", "#include \"app/ini.h\"\n#include <QString>\n" },
        { "lists/csv.cpp", "#include \"app/ini.h\"\n" }, { "app/FmAbout.h", "#include <QWidget>\n" },
        { "composition.h", "" },
        { "main.cpp", "#include \"composition.h\"\n#include \"app/FmAbout.h\"\n#include \"lists/csv.h\"\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()), std::vector<std::string>());
}

TEST(LayerCheck, FindsAnIncludeThatPointsUp)
{
    const SourceTree tree{ { "app/ini.cpp", "\n#include \"lists/csv.h\"\n" } };
    EXPECT_EQ(
        FindBrokenLayers(tree, FakeRules()), std::vector<std::string>({ "app/ini.cpp:2: lists/csv.h points up" }));
}

TEST(LayerCheck, FindsAModuleThatIncludesTheComposition)
{
    const SourceTree tree{ { "composition.h", "" }, { "print/page.cpp", "#include \"composition.h\"\n" } };
    EXPECT_EQ(
        FindBrokenLayers(tree, FakeRules()), std::vector<std::string>({ "print/page.cpp:1: composition.h points up" }));
}

TEST(LayerCheck, FindsAnIncludeThatDoesNotStartAtAFolder)
{
    const SourceTree tree{ { "app/ini.cpp", "#include \"ini.h\"\n#include \"tests/support/fixture.h\"\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()),
        std::vector<std::string>({ "app/ini.cpp:1: ini.h does not start at an ordered folder",
            "app/ini.cpp:2: tests/support/fixture.h does not start at an ordered folder" }));
}

TEST(LayerCheck, FindsAWidgetThatAHeaderBringsIntoAModule)
{
    const SourceTree tree{ { "app/form.h", "#include <QWidget>\n" }, { "app/ini.cpp", "#include \"app/form.h\"\n" } };
    EXPECT_EQ(FindBrokenLayers(tree, FakeRules()),
        std::vector<std::string>({ "app/form.h:1: QWidget brings a widget into the module app/ini.cpp" }));
}

TEST(LayerCheck, FindsACircleWithinAFolder)
{
    const SourceTree tree{ { "app/a.cpp", "#include \"app/b.h\"\n" }, { "app/b.cpp", "#include \"app/c.h\"\n" },
        { "app/c.h", "#include \"app/a.h\"\n" } };
    EXPECT_EQ(
        FindBrokenLayers(tree, FakeRules()), std::vector<std::string>({ "circle: app/a -> app/b -> app/c -> app/a" }));
}
