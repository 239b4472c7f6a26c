// tests/layers/sourceText.h: what a C++ source says at namespace scope: its includes, and the functions and types that
// it declares or defines there. Reads text as this tree is formatted; it is no parser of the language.
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

struct LastingVariable {
    std::string Type;
    std::string Name;
    std::string Function; ///< whose static it is, or which is the last one before it
    int Line = 0; ///< from 1
};

/// Variables that outlive every call and can change: statics of functions and classes, and what stands at namespace
/// scope, without constants.
std::vector<LastingVariable> LastingVariablesOf(const std::string& text);
