// tests/layers/sourceText.h: includes of a C++ source, and the functions, types and variables at its namespace scope.
// Relies on the formatting of this tree; it is no parser of the language.
#pragma once

#include <set>
#include <string>
#include <vector>

struct Include {
    std::string Name;
    bool Quoted = false;
    int Line = 0; ///< from 1
};
std::vector<Include> IncludesOf(const std::string& text);

struct ScopeNames {
    std::set<std::string> Declared; ///< functions, with or without a body
    std::set<std::string> Defined; ///< functions with a body
    std::set<std::string> Types; ///< classes and structures with a body
    std::set<std::string> MembersOf; ///< types of which a member function is defined out of line
};

/// Unnamed namespaces are left out: what they hold belongs to no header.
ScopeNames NamesAtNamespaceScope(const std::string& text);

struct StaticVariable {
    std::string Type;
    std::string Name;
    std::string Function; ///< whose static it is, or the last one before it
    int Line = 0; ///< from 1
};

/// Mutable variables of static storage: statics of functions and classes, and variables at namespace scope.
std::vector<StaticVariable> StaticVariablesOf(const std::string& text);
