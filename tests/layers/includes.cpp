#include "tests/layers/includes.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <regex>

namespace {

/// Lowest first. Files at the root compose the program and stand above all of them.
constexpr std::array<std::string_view, 7> kFolders{ "closed", "app", "link", "screen", "lists", "print", "tools" };

struct Include {
    std::string Name;
    bool Quoted = false;
    int Line = 0;
};

std::string FirstFolder(const std::string& path)
{
    const size_t slash = path.find('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

/// Place in the order; the root's own files come last, nothing for a folder that is not ordered.
std::optional<size_t> Rank(const std::string& path)
{
    const std::string folder = FirstFolder(path);
    if (folder.empty())
        return kFolders.size();
    const auto* const at = std::find(kFolders.begin(), kFolders.end(), folder);
    if (at == kFolders.end())
        return std::nullopt;
    return static_cast<size_t>(at - kFolders.begin());
}

std::vector<Include> IncludesOf(const std::string& text)
{
    static const std::regex directive(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
    std::vector<Include> includes;
    std::string::size_type start = 0;
    for (int number = 1; start < text.size(); ++number) {
        const auto end = std::min(text.find('\n', start), text.size());
        std::smatch match;
        const std::string line = text.substr(start, end - start);
        if (std::regex_search(line, match, directive))
            includes.push_back({ match[2], match[1] == "\"", number });
        start = end + 1;
    }
    return includes;
}

/// A header and its source file are one module.
std::string ModuleOf(const std::string& path)
{
    return path.substr(0, path.rfind('.'));
}

std::string Place(const std::string& path, const Include& include)
{
    return path + ":" + std::to_string(include.Line) + ": " + include.Name;
}

class LayerCheck {
public:
    LayerCheck(const SourceTree& tree, const LayerRules& rules)
        : rules_(rules)
    {
        for (const auto& [path, text] : tree)
            includes_[path] = IncludesOf(text);
    }

    std::vector<std::string> Run()
    {
        CheckDirections();
        CheckWidgets();
        CheckCircles();
        return findings_;
    }

private:
    void CheckDirections()
    {
        for (const auto& [path, includes] : includes_) {
            for (const Include& include : includes) {
                if (include.Quoted)
                    CheckDirection(path, include);
            }
        }
    }

    void CheckDirection(const std::string& path, const Include& include)
    {
        if (include.Name.ends_with(".moc"))
            return;
        const auto from = Rank(path);
        const auto to = Rank(include.Name);
        const bool fromRoot = FirstFolder(include.Name).empty() && includes_.contains(include.Name);
        if (!to || (FirstFolder(include.Name).empty() && !fromRoot))
            findings_.push_back(Place(path, include) + " does not start at an ordered folder");
        else if (*to > *from)
            findings_.push_back(Place(path, include) + " points up");
    }

    void CheckWidgets()
    {
        for (const std::string& source : rules_.ModuleSources) {
            std::set<std::string> seen;
            CheckWidgetsFrom(source, source, seen);
        }
    }

    void CheckWidgetsFrom(const std::string& path, const std::string& source, std::set<std::string>& seen)
    {
        if (!seen.insert(path).second)
            return;
        for (const Include& include : includes_[path]) {
            if (include.Quoted && includes_.contains(include.Name))
                CheckWidgetsFrom(include.Name, source, seen);
            else if (IsWidgetHeader(include.Name))
                findings_.push_back(Place(path, include) + " brings a widget into the module " + source);
        }
    }

    bool IsWidgetHeader(const std::string& name) const
    {
        return name.starts_with("QtWidgets") || name.starts_with("QtPrintSupport") || name.starts_with("QtSvgWidgets")
            || rules_.WidgetHeaders.contains(name);
    }

    void CheckCircles()
    {
        for (const auto& [path, includes] : includes_) {
            for (const Include& include : includes) {
                const bool sameFolder = FirstFolder(path) == FirstFolder(include.Name);
                if (include.Quoted && sameFolder && ModuleOf(path) != ModuleOf(include.Name))
                    neighbours_[ModuleOf(path)].insert(ModuleOf(include.Name));
            }
        }
        for (const auto& [module, unused] : neighbours_) {
            std::vector<std::string> road;
            FollowCircle(module, road);
        }
    }

    /// Reports each circle once: the walk never leaves it unless it ends at the module where it was entered, and
    /// modules that were left are not entered again.
    void FollowCircle(const std::string& module, std::vector<std::string>& road)
    {
        const auto at = std::find(road.begin(), road.end(), module);
        if (at != road.end()) {
            std::string circle;
            for (auto step = at; step != road.end(); ++step)
                circle += *step + " -> ";
            findings_.push_back("circle: " + circle + module);
            return;
        }
        if (!visited_.insert(module).second)
            return;
        road.push_back(module);
        if (const auto found = neighbours_.find(module); found != neighbours_.end()) {
            for (const std::string& next : found->second)
                FollowCircle(next, road);
        }
        road.pop_back();
    }

    const LayerRules& rules_;
    std::map<std::string, std::vector<Include>> includes_;
    std::map<std::string, std::set<std::string>> neighbours_;
    std::set<std::string> visited_;
    std::vector<std::string> findings_;
};

bool IsSource(const std::filesystem::path& path)
{
    return path.extension() == ".cpp" || path.extension() == ".h";
}

void AddFile(SourceTree& tree, const std::filesystem::path& root, const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    tree[file.lexically_relative(root).generic_string()] =
        std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

} // namespace

std::vector<std::string> FindBrokenLayers(const SourceTree& tree, const LayerRules& rules)
{
    return LayerCheck(tree, rules).Run();
}

SourceTree ReadSourceTree(const std::string& root)
{
    namespace fs = std::filesystem;
    SourceTree tree;
    for (const auto& entry : fs::directory_iterator(root)) {
        if (entry.is_regular_file() && IsSource(entry.path()))
            AddFile(tree, root, entry.path());
    }
    for (const std::string_view folder : kFolders) {
        for (const auto& entry : fs::recursive_directory_iterator(fs::path(root) / folder)) {
            if (entry.is_regular_file() && IsSource(entry.path()))
                AddFile(tree, root, entry.path());
        }
    }
    return tree;
}
