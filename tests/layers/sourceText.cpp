#include "tests/layers/sourceText.h"

#include <cctype>
#include <regex>
#include <sstream>

namespace {

/// Comments, literals and preprocessor lines as blanks.
class CodeOnly {
public:
    explicit CodeOnly(std::string text)
        : text_(std::move(text))
    {
    }

    std::string Run()
    {
        while (at_ < text_.size()) {
            const bool startsLine = at_ == 0 || text_[at_ - 1] == '\n';
            if (startsLine && text_[at_] == '#')
                BlankDirective();
            else if (Starts("//"))
                BlankUntil(text_.find('\n', at_));
            else if (Starts("/*"))
                BlankPast(text_.find("*/", at_ + 2), 2);
            else if (Starts("R\"("))
                BlankPast(text_.find(")\"", at_ + 3), 2);
            else if (text_[at_] == '"' || (text_[at_] == '\'' && !IsDigitSeparator()))
                BlankLiteral(text_[at_]);
            else
                ++at_;
        }
        return text_;
    }

private:
    bool Starts(std::string_view what) const
    {
        return std::string_view(text_).substr(at_).starts_with(what);
    }

    /// In a number; the prefix of a character literal is a word without a digit in front.
    bool IsDigitSeparator() const
    {
        size_t word = at_;
        while (word > 0 && (std::isalnum(static_cast<unsigned char>(text_[word - 1])) != 0 || text_[word - 1] == '\''))
            --word;
        return std::isdigit(static_cast<unsigned char>(text_[word])) != 0;
    }

    void BlankUntil(size_t end)
    {
        for (end = std::min(end, text_.size()); at_ < end; ++at_) {
            if (text_[at_] != '\n')
                text_[at_] = ' ';
        }
    }

    void BlankPast(size_t mark, size_t length)
    {
        BlankUntil(mark == std::string::npos ? mark : mark + length);
    }

    void BlankDirective()
    {
        size_t end = text_.find('\n', at_);
        while (end != std::string::npos && text_[end - 1] == '\\')
            end = text_.find('\n', end + 1);
        BlankUntil(end);
    }

    void BlankLiteral(char quote)
    {
        size_t end = at_ + 1;
        while (end < text_.size() && text_[end] != quote)
            end += text_[end] == '\\' ? 2 : 1;
        BlankUntil(end + 1);
    }

    std::string text_;
    size_t at_ = 0;
};

/// Splits code into its statements at namespace scope. A statement ends with a semicolon or a body, which is left out.
class Statements {
public:
    struct Statement {
        std::string Text;
        bool HasBody = false;
    };

    explicit Statements(const std::string& code)
        : code_(code)
    {
    }

    std::vector<Statement> Run()
    {
        for (; at_ < code_.size(); ++at_) {
            const char character = code_[at_];
            if (character == '{')
                OpenBrace();
            else if (character == ';')
                End(false);
            else if (character != '}') // the end of a namespace
                Append(character);
        }
        return statements_;
    }

private:
    /// Collapses white space: the regular expressions recurse per character, and a blanked comment is long.
    void Append(char character)
    {
        if (std::isspace(static_cast<unsigned char>(character)) == 0)
            current_ += character;
        else if (!current_.empty() && current_.back() != ' ')
            current_ += ' ';
    }

    void OpenBrace()
    {
        static const std::regex namedNamespace(R"(^\s*(inline\s+)?namespace\s+\w+(::\w+)*\s*$|^\s*extern\s*$)");
        static const std::regex unnamedNamespace(R"(^\s*namespace\s*$)");
        if (std::regex_match(current_, namedNamespace)) {
            current_.clear();
            return;
        }
        SkipBody();
        if (std::regex_match(current_, unnamedNamespace))
            current_.clear();
        else if (!IsInitialiser())
            End(true);
    }

    /// Braces after a name, as in a default argument or a list of member initialisers, end no statement.
    bool IsInitialiser() const
    {
        size_t next = at_ + 1;
        while (next < code_.size() && std::isspace(static_cast<unsigned char>(code_[next])) != 0)
            ++next;
        return next < code_.size() && (code_[next] == ',' || code_[next] == ')' || code_[next] == '{');
    }

    void SkipBody()
    {
        for (int depth = 0; at_ < code_.size(); ++at_) {
            if (code_[at_] == '{')
                ++depth;
            else if (code_[at_] == '}' && --depth == 0)
                return;
        }
    }

    void End(bool hasBody)
    {
        statements_.push_back({ current_, hasBody });
        current_.clear();
    }

    const std::string& code_;
    size_t at_ = 0;
    std::string current_;
    std::vector<Statement> statements_;
};

/// Position of a function's parameters: the first parenthesis outside template arguments; npos without one, and for a
/// variable with an initialiser.
size_t ParametersAt(const std::string& statement)
{
    int depth = 0;
    for (size_t at = 0; at < statement.size(); ++at) {
        const char character = statement[at];
        if (character == '<')
            ++depth;
        else if (character == '>')
            --depth;
        else if (character == '=' && depth == 0)
            return std::string::npos;
        else if (character == '(' && depth == 0)
            return at;
    }
    return std::string::npos;
}

bool IsConstant(const std::string& declaration)
{
    static const std::regex constant(R"(\bconstexpr\b|^\s*(static\s+|inline\s+)*const\b[^*]*$|\*\s*const\s*$)");
    return std::regex_search(declaration, constant);
}

/// Statements that only look like the declaration of a variable.
bool IsDeclaration(const std::string& type)
{
    static const std::regex other(
        R"(^\s*(using|typedef|struct|class|enum|union|namespace|template|friend|return|operator|extern|public)\b)");
    return !std::regex_search(type, other);
}

/// Name of the function that a line begins; empty for any other line.
std::string FunctionBegunBy(const std::string& line)
{
    static const std::regex function(R"(^[A-Za-z][^=;]*?(\w+)\([^;]*$)");
    std::smatch match;
    return std::regex_search(line, match, function) ? match[1].str() : std::string();
}

void TakeFunction(const Statements::Statement& statement, ScopeNames& names)
{
    const size_t parameters = ParametersAt(statement.Text);
    if (parameters == std::string::npos)
        return;
    static const std::regex name(R"((?:(\w+)::)?(~?\w+)\s*$)");
    std::smatch match;
    const std::string before = statement.Text.substr(0, parameters);
    if (!std::regex_search(before, match, name))
        return;
    if (match[1].matched) {
        if (statement.HasBody)
            names.MembersOf.insert(match[1]);
        return;
    }
    names.Declared.insert(match[2]);
    if (statement.HasBody)
        names.Defined.insert(match[2]);
}

} // namespace

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

ScopeNames NamesAtNamespaceScope(const std::string& text)
{
    static const std::regex type(R"(^\s*(template\s*<[^>]*>\s*)?(class|struct)\s+(\w+))");
    const std::string code = CodeOnly(text).Run();
    ScopeNames names;
    for (const Statements::Statement& statement : Statements(code).Run()) {
        std::smatch match;
        if (!std::regex_search(statement.Text, match, type))
            TakeFunction(statement, names);
        else if (statement.HasBody)
            names.Types.insert(match[3]);
    }
    return names;
}

std::vector<StaticVariable> StaticVariablesOf(const std::string& text)
{
    static const std::regex ofFunction(R"(^\s+(static\s[^(){}=;]*[\s*&>])([a-z]\w*)\s*[;={(\[])");
    static const std::regex ofNamespace(R"(^([A-Za-z][^(){}=;]*[\s*&>])([a-z]\w*)\s*[;={\[])");
    std::istringstream code(CodeOnly(text).Run());
    std::vector<StaticVariable> variables;
    std::string function;
    int number = 0;
    for (std::string line; std::getline(code, line);) {
        ++number;
        if (std::string begun = FunctionBegunBy(line); !begun.empty())
            function = begun;
        std::smatch match;
        const bool isVariable =
            std::regex_search(line, match, ofFunction) || std::regex_search(line, match, ofNamespace);
        if (isVariable && IsDeclaration(match[1]) && !IsConstant(match[1]))
            variables.push_back({ match[1], match[2], function, number });
    }
    return variables;
}
