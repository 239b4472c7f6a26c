#include "tests/layers/includes.h"

#include "tests/layers/sourceText.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace {

/// A top folder and its rooms, lowest first. A floor without rooms counts as one.
struct Floor {
    std::string_view Name;
    std::vector<std::string_view> Rooms;
};

/// Lowest first. Files of a floor outside its rooms are above them, and files at the root above all floors.
const std::vector<Floor>& Floors()
{
    static const std::vector<Floor> floors{
        { "closed", {} },
        { "app",
            { "platform", "text", "values", "state", "settings", "forms", "message", "help", "about", "menu",
                "frame" } },
        { "link", { "classes", "channel", "connection", "files", "transfer", "documents", "control" } },
        { "screen", { "bitmap", "metafile", "document", "window", "diagram", "files" } },
        { "lists", { "values", "editor", "memory", "suppress", "antenna", "kfactor", "correction" } },
        { "print", { "printer", "page", "preview" } },
        { "tools", {} },
    };
    return floors;
}

/// Editors reach each other through the table of editors only.
constexpr std::array<std::string_view, 5> kEditorRooms{ "lists/memory", "lists/suppress", "lists/antenna",
    "lists/kfactor", "lists/correction" };

std::string FolderOf(const std::string& path)
{
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

std::string FirstFolder(const std::string& path)
{
    const size_t slash = path.find('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

/// Rank by floor, then room. Empty for a folder that has none.
std::optional<std::pair<size_t, size_t>> Rank(const std::string& path)
{
    const auto& floors = Floors();
    const std::string first = FirstFolder(path);
    if (first.empty())
        return std::pair(floors.size(), size_t{ 0 });
    const auto floor = std::find_if(floors.begin(), floors.end(), [&](const Floor& one) { return one.Name == first; });
    if (floor == floors.end())
        return std::nullopt;
    const auto rank = static_cast<size_t>(floor - floors.begin());
    const std::string folder = FolderOf(path);
    if (floor->Rooms.empty() || folder == first)
        return std::pair(rank, floor->Rooms.size());
    const auto room = std::find(floor->Rooms.begin(), floor->Rooms.end(), folder.substr(first.size() + 1));
    if (room == floor->Rooms.end())
        return std::nullopt;
    return std::pair(rank, static_cast<size_t>(room - floor->Rooms.begin()));
}

bool IsEditorRoom(const std::string& folder)
{
    return std::find(kEditorRooms.begin(), kEditorRooms.end(), folder) != kEditorRooms.end();
}

std::string WithoutExtension(const std::string& path)
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
        : tree_(tree)
        , rules_(rules)
    {
        for (const auto& [path, text] : tree)
            includes_[path] = IncludesOf(text);
    }

    std::vector<std::string> Run()
    {
        CheckPlaces();
        CheckDirections();
        CheckWidgets();
        TieModules();
        CheckCycles();
        return findings_;
    }

private:
    void CheckPlaces()
    {
        for (const auto& [path, includes] : includes_) {
            if (!Rank(path))
                findings_.push_back(path + " lies in no room");
        }
    }

    void CheckDirections()
    {
        for (const auto& [path, includes] : includes_) {
            for (const Include& include : includes) {
                if (include.Quoted && !include.Name.ends_with(".moc"))
                    CheckDirection(path, include);
            }
        }
    }

    void CheckDirection(const std::string& path, const Include& include)
    {
        const auto from = Rank(path);
        const auto to = Rank(include.Name);
        const bool fromRoot = FirstFolder(include.Name).empty() && includes_.contains(include.Name);
        if (!to || (FirstFolder(include.Name).empty() && !fromRoot))
            findings_.push_back(Place(path, include) + " does not start at an ordered folder");
        else if (from && *to > *from)
            findings_.push_back(Place(path, include) + " points up");
        else if (FolderOf(path) != FolderOf(include.Name) && IsEditorRoom(FolderOf(path))
            && IsEditorRoom(FolderOf(include.Name)))
            findings_.push_back(Place(path, include) + " reaches into another editor's room");
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

    /// Joins each source with the included headers whose functions it defines.
    void TieModules()
    {
        std::map<std::string, ScopeNames> names;
        for (const auto& [path, text] : tree_)
            names[path] = NamesAtNamespaceScope(text);
        for (const auto& [path, includes] : includes_) {
            if (path.ends_with(".h") || path.starts_with("closed/"))
                continue;
            const std::string own = WithoutExtension(path) + ".h";
            for (const Include& include : includes) {
                if (include.Name != own && names.contains(include.Name)
                    && Defines(names[path], names[include.Name], names[own]))
                    Join(WithoutExtension(path), WithoutExtension(include.Name));
            }
        }
    }

    /// True if `source` defines something of `header` that its own header does not have.
    static bool Defines(const ScopeNames& source, const ScopeNames& header, const ScopeNames& own)
    {
        const auto fills = [](const std::set<std::string>& done, const std::set<std::string>& asked,
                               const std::set<std::string>& known) {
            return std::any_of(done.begin(), done.end(),
                [&](const std::string& name) { return asked.contains(name) && !known.contains(name); });
        };
        return fills(source.Defined, header.Declared, own.Declared) || fills(source.MembersOf, header.Types, own.Types);
    }

    std::string ModuleOf(const std::string& path) const
    {
        std::string name = path;
        for (auto found = joined_.find(name); found != joined_.end(); found = joined_.find(name))
            name = found->second;
        return name;
    }

    void Join(const std::string& source, const std::string& header)
    {
        const std::string from = ModuleOf(source);
        const std::string to = ModuleOf(header);
        if (from != to)
            joined_[from] = to;
    }

    void CheckCycles()
    {
        for (const auto& [path, includes] : includes_) {
            const std::string module = ModuleOf(WithoutExtension(path));
            for (const Include& include : includes) {
                const std::string next = ModuleOf(WithoutExtension(include.Name));
                if (include.Quoted && module != next && !path.starts_with("closed/"))
                    neighbours_[module].insert(next);
            }
        }
        for (const auto& [module, unused] : neighbours_) {
            std::vector<std::string> trail;
            FollowCycle(module, trail);
        }
    }

    /// Depth-first search that visits each module once, so that each cycle is reported once.
    void FollowCycle(const std::string& module, std::vector<std::string>& trail)
    {
        const auto at = std::find(trail.begin(), trail.end(), module);
        if (at != trail.end()) {
            std::string cycle;
            for (auto step = at; step != trail.end(); ++step)
                cycle += *step + " -> ";
            findings_.push_back("cycle: " + cycle + module);
            return;
        }
        if (!visited_.insert(module).second)
            return;
        trail.push_back(module);
        if (const auto found = neighbours_.find(module); found != neighbours_.end()) {
            for (const std::string& next : found->second)
                FollowCycle(next, trail);
        }
        trail.pop_back();
    }

    const SourceTree& tree_;
    const LayerRules& rules_;
    std::map<std::string, std::vector<Include>> includes_;
    std::map<std::string, std::string> joined_;
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
    for (const Floor& floor : Floors()) {
        for (const auto& entry : fs::recursive_directory_iterator(fs::path(root) / floor.Name)) {
            if (entry.is_regular_file() && IsSource(entry.path()))
                AddFile(tree, root, entry.path());
        }
    }
    return tree;
}
