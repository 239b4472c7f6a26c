// tests/layers/includes.h: reads the includes of a source tree and tells which of them break the order of the folders.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

/// Contents of source files by their path from the root of the tree.
using SourceTree = std::map<std::string, std::string>;

/// What decides beside the tree itself.
struct LayerRules {
    std::set<std::string> ModuleSources; ///< files that are built without widgets
    std::set<std::string> WidgetHeaders; ///< names of headers that only forms may include
};

/// One line for each include that points up, does not start at a folder of the tree, brings a widget into a module
/// (directly or through headers of the tree), or closes a circle within a folder. Empty for a tree in order.
std::vector<std::string> FindBrokenLayers(const SourceTree& tree, const LayerRules& rules);

/// Reads the sources of the folders that are ordered, and those at the root.
SourceTree ReadSourceTree(const std::string& root);
