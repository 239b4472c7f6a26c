// Generates the sources of the help book: pages with the program's own texts filled in, contents, index, and the
// topic and pop-up text of each help number. A duplicate help number or keyword, a text number without text, and a
// topic without a first paragraph fail the build with a message.
// A page is the body of an HTML file. In it h1, h2 and dt elements with an id are topics: `data-help` lists their
// help numbers ("11901 13100-13113"), `data-keys` their index keywords, separated by semicolons. The paragraph or dd
// that follows is the pop-up text. {{11904}} is replaced by the caption or message with this number.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

using Texts = std::map<int, std::string>;

struct Topic {
    std::string Element; ///< h1, h2 or dt
    std::string Title; ///< plain text
    std::string Path; ///< page#id
    int Level = 0; ///< depth in the contents
    std::vector<int> HelpNumbers;
    std::vector<std::string> Keywords;
    std::string FirstParagraph; ///< plain text
};

[[noreturn]] void Fail(const std::string& what)
{
    throw std::runtime_error(what);
}

std::string ReadFile(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        Fail(path.string() + " cannot be read");
    return { std::istreambuf_iterator<char>(in), {} };
}

void WriteFile(const fs::path& path, const std::string& bytes)
{
    fs::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary);
    if (!(out << bytes).flush())
        Fail(path.string() + " cannot be written");
}

std::string Replaced(std::string text, const std::string& find, const std::string& replacement)
{
    for (size_t at = 0; (at = text.find(find, at)) != std::string::npos; at += replacement.size())
        text.replace(at, find.size(), replacement);
    return text;
}

std::string Trimmed(const std::string& text)
{
    const size_t first = text.find_first_not_of(" \t\r\n");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

std::string Escaped(const std::string& text)
{
    return Replaced(Replaced(Replaced(Replaced(text, "&", "&amp;"), "<", "&lt;"), ">", "&gt;"), "\"", "&quot;");
}

/// Text without tags and entities; blanks are collapsed.
std::string PlainText(const std::string& html)
{
    std::string text;
    bool inTag = false;
    for (char character : html) {
        inTag = inTag || character == '<';
        if (!inTag)
            text += character;
        else if (character == '>')
            inTag = false;
    }
    text = Replaced(Replaced(Replaced(text, "&lt;", "<"), "&gt;", ">"), "&quot;", "\"");
    std::istringstream words(Replaced(text, "&amp;", "&"));
    std::string plain;
    for (std::string word; words >> word;)
        plain += (plain.empty() ? "" : " ") + word;
    return plain;
}

/// A caption or message as displayed: without mnemonic, key, optional part and placeholders.
std::string ShownText(const std::string& source)
{
    std::string text = Replaced(source.substr(0, source.find("\\t")), "\\n", " ");
    for (size_t open = 0; (open = text.find('{')) != std::string::npos;)
        text.erase(open, text.find('}', open) - open + 1);
    for (size_t at = 0; (at = text.find('&', at)) != std::string::npos; ++at) {
        if (at + 1 < text.size() && std::isalnum(static_cast<unsigned char>(text[at + 1])) != 0)
            text.erase(at, 1);
    }
    for (const char* place : { "%1", "%2", "%3" })
        text = Replaced(text, place, "…");
    for (const char* product : { "@1", "@2", "@4" })
        text = Replaced(text, product, "Tarvik");
    text = Replaced(Replaced(text, "@5", "Tarvik Instruments"), "@3", "instrument");
    text = Replaced(text, "….", "…");
    for (const std::string end : { "...", ":" }) {
        if (text.size() > end.size() && text.ends_with(end))
            text.erase(text.size() - end.size());
    }
    return text;
}

Texts ReadTexts(const fs::path& path)
{
    Texts texts;
    std::istringstream lines(ReadFile(path));
    for (std::string line; std::getline(lines, line);) {
        const size_t tab = line.find('\t');
        if (!line.empty() && line[0] != '#' && tab != std::string::npos)
            texts[std::stoi(line.substr(0, tab))] = line.substr(tab + 1);
    }
    return texts;
}

std::string WithTexts(const std::string& body, const Texts& texts, const std::string& page)
{
    std::string result = body;
    for (size_t at = 0; (at = result.find("{{", at)) != std::string::npos;) {
        const size_t end = result.find("}}", at);
        const auto text = texts.find(std::atoi(result.c_str() + at + 2));
        if (end == std::string::npos || text == texts.end())
            Fail(page + ": no text for " + result.substr(at, 9));
        const std::string shown = Escaped(ShownText(text->second));
        result.replace(at, end + 2 - at, shown);
        at += shown.size();
    }
    return result;
}

std::string Attribute(const std::string& tag, const std::string& name)
{
    const std::string start = " " + name + "=\"";
    const size_t at = tag.find(start);
    if (at == std::string::npos)
        return {};
    const size_t value = at + start.size();
    return tag.substr(value, tag.find('"', value) - value);
}

std::vector<int> Numbers(const std::string& list)
{
    std::vector<int> numbers;
    std::istringstream parts(list);
    for (std::string part; parts >> part;) {
        const int first = std::stoi(part);
        const size_t dash = part.find('-');
        const int last = dash == std::string::npos ? first : std::stoi(part.substr(dash + 1));
        for (int number = first; number <= last; ++number)
            numbers.push_back(number);
    }
    return numbers;
}

std::vector<std::string> Keywords(const std::string& list)
{
    std::vector<std::string> keywords;
    std::istringstream parts(list);
    for (std::string part; std::getline(parts, part, ';');)
        keywords.push_back(Trimmed(part));
    return keywords;
}

/// The first paragraph or dd that starts after `at`.
std::string ParagraphAfter(const std::string& body, size_t at)
{
    const size_t paragraph = body.find("<p", at);
    const size_t definition = body.find("<dd", at);
    const size_t start = std::min(paragraph, definition);
    if (start == std::string::npos)
        return {};
    const size_t end = body.find(paragraph < definition ? "</p>" : "</dd>", start);
    return PlainText(body.substr(start, end - start));
}

std::vector<Topic> TopicsOf(const std::string& body, const std::string& page, int pageLevel)
{
    std::vector<Topic> topics;
    for (size_t at = 0; (at = body.find('<', at)) != std::string::npos; ++at) {
        const std::string element = body.substr(at + 1, 2);
        const size_t tagEnd = body.find('>', at);
        const std::string tag = body.substr(at, tagEnd - at);
        if ((element != "h1" && element != "h2" && element != "dt") || tagEnd == std::string::npos) {
            if (!Attribute(tag, "data-help").empty() || !Attribute(tag, "data-keys").empty())
                Fail(page + ": no topic: " + tag);
            continue;
        }
        const std::string id = Attribute(tag, "id");
        if (id.empty())
            Fail(page + ": a topic without id: " + tag);
        Topic topic;
        topic.Element = element;
        topic.Title = PlainText(body.substr(tagEnd + 1, body.find("</" + element, tagEnd) - tagEnd - 1));
        topic.Path = page + "#" + id;
        topic.Level = pageLevel + (element == "h1" ? 0 : 1);
        topic.HelpNumbers = Numbers(Attribute(tag, "data-help"));
        topic.Keywords = Keywords(Attribute(tag, "data-keys"));
        topic.FirstParagraph = ParagraphAfter(body, tagEnd);
        if (!topic.HelpNumbers.empty() && topic.FirstParagraph.empty())
            Fail(topic.Path + ": no paragraph after the title");
        topics.push_back(topic);
    }
    if (topics.empty() || topics.front().Element != "h1")
        Fail(page + ": does not start with a title");
    return topics;
}

std::string SiteMapEntry(const std::string& name, const std::string& path)
{
    return "<li><object type=\"text/sitemap\"><param name=\"Name\" value=\"" + Escaped(name)
        + "\"><param name=\"Local\" value=\"" + Escaped(path) + "\"></object></li>\n";
}

const char* const kSiteMapHead = "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">\n<html><head>"
                                 "<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">"
                                 "</head><body>\n<ul>\n";
const char* const kSiteMapTail = "</ul>\n</body></html>\n";

std::string ContentsMap(const std::vector<Topic>& topics)
{
    std::string map = kSiteMapHead;
    int depth = 0;
    for (const Topic& topic : topics) {
        if (topic.Element == "dt")
            continue;
        for (; depth < topic.Level; ++depth)
            map += "<ul>\n";
        for (; depth > topic.Level; --depth)
            map += "</ul>\n";
        map += SiteMapEntry(topic.Title, topic.Path);
    }
    for (; depth > 0; --depth)
        map += "</ul>\n";
    return map + kSiteMapTail;
}

std::string SortForm(std::string keyword)
{
    std::transform(keyword.begin(), keyword.end(), keyword.begin(),
        [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
    return keyword;
}

std::string IndexMap(const std::vector<Topic>& topics)
{
    std::map<std::string, std::string> entries;
    for (const Topic& topic : topics) {
        for (const std::string& keyword : topic.Keywords) {
            if (!entries.emplace(SortForm(keyword), SiteMapEntry(keyword, topic.Path)).second)
                Fail(topic.Path + ": the keyword \"" + keyword + "\" is not unique");
        }
    }
    std::string map = kSiteMapHead;
    for (const auto& [sortForm, entry] : entries)
        map += entry;
    return map + kSiteMapTail;
}

/// Writes "number<TAB>path" lines, and the pop-up texts as ".topic number" followed by the text.
void WriteNumbers(const std::vector<Topic>& topics, const fs::path& folder)
{
    std::map<int, const Topic*> byNumber;
    for (const Topic& topic : topics) {
        for (int number : topic.HelpNumbers) {
            if (!byNumber.emplace(number, &topic).second)
                Fail(topic.Path + ": help number " + std::to_string(number) + " is not unique");
        }
    }
    std::string paths;
    std::string popups;
    for (const auto& [number, topic] : byNumber) {
        paths += std::to_string(number) + "\t" + topic->Path + "\n";
        popups += ".topic " + std::to_string(number) + "\n" + topic->FirstParagraph + "\n";
    }
    WriteFile(folder / "topics.txt", paths);
    WriteFile(folder / "popup" / "popupid.txt", popups);
}

std::string Page(const std::string& title, const std::string& body)
{
    return "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>" + Escaped(title)
        + "</title><link rel=\"stylesheet\" type=\"text/css\" href=\"style.css\"></head>\n<body>\n" + body
        + "</body></html>\n";
}

/// Checks that links within the book have a target.
void CheckLinks(const std::map<std::string, std::string>& pages, const std::vector<Topic>& topics)
{
    std::set<std::string> targets;
    for (const Topic& topic : topics)
        targets.insert({ topic.Path, topic.Path.substr(0, topic.Path.find('#')) });
    for (const auto& [name, body] : pages) {
        for (size_t at = 0; (at = body.find("href=\"", at)) != std::string::npos; ++at) {
            const size_t start = at + 6;
            const std::string link = body.substr(start, body.find('"', start) - start);
            if (!targets.contains(link[0] == '#' ? name + link : link))
                Fail(name + ": the link " + link + " has no target");
        }
    }
}

std::string Project(const std::map<std::string, std::string>& pages, const std::string& home)
{
    std::string project = "[OPTIONS]\nCompatibility=1.1 or later\nCompiled file=TARVIK.chm\n"
                          "Contents file=contents.hhc\nIndex file=index.hhk\nDefault topic="
        + home + "\nTitle=Tarvik Help\nFull-text search=No\nBinary Index=No\n"
        + "Language=0x809 English (United Kingdom)\n\n[FILES]\n";
    for (const auto& [name, body] : pages)
        project += name + "\n";
    return project + "style.css\nstyle-dark.css\ntopics.txt\nversion.txt\npopup/popupid.txt\n";
}

void MakeBook(const fs::path& source, const fs::path& textTable, const std::string& version, const fs::path& folder)
{
    const Texts texts = ReadTexts(textTable);
    std::map<std::string, std::string> pages;
    std::vector<Topic> topics;
    std::istringstream book(ReadFile(source / "book.txt"));
    for (std::string line; std::getline(book, line);) {
        if (line.empty() || line[0] == '#')
            continue;
        const std::string name = Trimmed(line);
        const std::string body = WithTexts(ReadFile(source / "pages" / name), texts, name);
        const std::vector<Topic> found = TopicsOf(body, name, static_cast<int>(line.find(name)));
        topics.insert(topics.end(), found.begin(), found.end());
        pages[name] = body;
        WriteFile(folder / name, Page(found.front().Title, body));
    }
    CheckLinks(pages, topics);
    WriteNumbers(topics, folder);
    WriteFile(folder / "contents.hhc", ContentsMap(topics));
    WriteFile(folder / "index.hhk", IndexMap(topics));
    WriteFile(folder / "version.txt", version + ".0\t" + version + ".0\n");
    for (const char* style : { "style.css", "style-dark.css" })
        WriteFile(folder / style, ReadFile(source / "pages" / style));
    WriteFile(folder / "book.hhp", Project(pages, topics.front().Path.substr(0, topics.front().Path.find('#'))));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 5) {
        std::cerr << "usage: tarvik_makebook SOURCE TEXTS VERSION FOLDER\n";
        return EXIT_FAILURE;
    }
    try {
        MakeBook(argv[1], argv[2], argv[3], argv[4]);
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << "help: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
