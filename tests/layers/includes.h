// tests/layers/includes.h: finds includes of a source tree that break the order of floors and rooms.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

/// Contents of source files by their path from the root of the tree.
using SourceTree = std::map<std::string, std::string>;

/// What the build knows about the tree.
struct LayerRules {
    std::set<std::string> ModuleSources; ///< files that are built without widgets
    std::set<std::string> WidgetHeaders; ///< names of headers that only forms may include
};

/// One line for each finding:
/// - an include that points up, or from one list editor's room into another's;
/// - an include that does not start at a folder of the tree;
/// - a file in a folder of a floor that is no room;
/// - an include that brings a widget into a module, directly or through headers of the tree;
/// - a cycle of modules. A module is a header and its source; a source that defines functions of further headers ties
///   them into one module, so that what it includes counts for all of them.
std::vector<std::string> FindBrokenLayers(const SourceTree& tree, const LayerRules& rules);

/// Reads the sources of all floors, and those at the root.
SourceTree ReadSourceTree(const std::string& root);
