#include "tools/tarvikctl/printArguments.h"

#include "print/printer/paperSizes.h"

#include <QCommandLineParser>

#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace tarvik {

namespace {

constexpr int kLeastDpi = 36;
constexpr int kMostDpi = 2400;
constexpr float kMostInches = 100;

/// `count` numbers from 0 to kMostInches, separated by commas; empty for anything else.
std::vector<float> LengthsOf(const QString& value, qsizetype count)
{
    const QStringList parts = value.split(u',');
    std::vector<float> lengths;
    for (const QString& part : parts) {
        bool isNumber = false;
        const float length = part.trimmed().toFloat(&isNumber);
        if (!isNumber || !std::isfinite(length) || length < 0 || length > kMostInches)
            return {};
        lengths.push_back(length);
    }
    return parts.size() == count ? lengths : std::vector<float>();
}

class PrintParser {
public:
    explicit PrintParser(QString& error)
        : error_(error)
    {
        result_.Paper.Offset = { kPdfOffset, kPdfOffset };
        result_.Paper.DotsPerInch = { kPdfDotsPerInch, kPdfDotsPerInch };
        result_.Paper.Paper = NamedPapers()[kPaperA4].Inches;
    }

    std::optional<PrintArguments> Run(const QStringList& words)
    {
        if (!TakeOptions(words) || !CheckTogether())
            return std::nullopt;
        return result_;
    }

private:
    struct ValueOption {
        const char* Name;
        bool (PrintParser::*Take)(const QString& value);
    };

    bool Fail(const QString& error)
    {
        error_ = QStringLiteral("print: ") + error;
        return false;
    }

    bool TakeOptions(const QStringList& words)
    {
        static constexpr std::array<ValueOption, 9> kValues{ { { "to", &PrintParser::TakePdf },
            { "printer", &PrintParser::TakePrinter }, { "paper", &PrintParser::TakePaper },
            { "margins", &PrintParser::TakeMargins }, { "offset", &PrintParser::TakeOffset },
            { "dpi", &PrintParser::TakeDpi }, { "settings", &PrintParser::TakeSettings },
            { "per-page", &PrintParser::TakePerPage }, { "description", &PrintParser::TakeDescription } } };
        QCommandLineParser parser;
        for (const ValueOption& option : kValues)
            parser.addOption({ QString::fromLatin1(option.Name), QString(), QStringLiteral("value") });
        for (const char* flag :
            { "landscape", "arrange", "title", "no-title", "outline", "no-outline", "bw", "layout" })
            parser.addOption(QCommandLineOption(QString::fromLatin1(flag)));
        if (!parser.parse(words))
            return Fail(parser.errorText());
        for (const ValueOption& option : kValues) {
            for (const QString& value : parser.values(QString::fromLatin1(option.Name))) {
                if (!(this->*option.Take)(value))
                    return false;
            }
        }
        const auto isSet = [&parser](const char* flag) { return parser.isSet(QString::fromLatin1(flag)); };
        result_.Landscape = isSet("landscape");
        if (result_.Landscape)
            std::swap(result_.Paper.Paper.X, result_.Paper.Paper.Y);
        result_.Arrange = isSet("arrange");
        result_.BlackAndWhite = isSet("bw");
        result_.Layout = isSet("layout");
        result_.Files = parser.positionalArguments();
        return TakeSwitch(isSet("title"), isSet("no-title"), "title", result_.Title)
            && TakeSwitch(isSet("outline"), isSet("no-outline"), "outline", result_.Outline);
    }

    bool TakeSwitch(bool on, bool off, const char* name, std::optional<bool>& value)
    {
        if (on && off)
            return Fail(QStringLiteral("--%1 and --no-%1 exclude each other").arg(QLatin1String(name)));
        if (on || off)
            value = on;
        return true;
    }

    bool TakePdf(const QString& value)
    {
        result_.Pdf = value;
        return value.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)
            || Fail(QStringLiteral("--to takes a file whose name ends in .pdf"));
    }

    bool TakePrinter(const QString& value)
    {
        result_.Printer = value;
        return !value.isEmpty() || Fail(QStringLiteral("--printer takes the name of a queue"));
    }

    bool TakePaper(const QString& value)
    {
        const NamedPaper* found = PaperNamed(value);
        if (found == nullptr)
            return Fail(QStringLiteral("--paper takes A3, A4, A5, Letter or Legal"));
        result_.Paper.Paper = found->Inches;
        result_.PaperKeyword = QString::fromLatin1(found->Keyword);
        return true;
    }

    bool TakeMargins(const QString& value)
    {
        const std::vector<float> lengths = LengthsOf(value, 4);
        if (lengths.empty())
            return Fail(QStringLiteral("--margins takes LEFT,TOP,RIGHT,BOTTOM in inches, none below 0"));
        result_.Margins = PageMargins{ lengths[0], lengths[1], lengths[2], lengths[3] };
        return true;
    }

    bool TakeOffset(const QString& value)
    {
        const std::vector<float> lengths = LengthsOf(value, 2);
        if (lengths.empty())
            return Fail(QStringLiteral("--offset takes X,Y in inches, none below 0"));
        result_.Paper.Offset = { lengths[0], lengths[1] };
        return true;
    }

    bool TakeDpi(const QString& value)
    {
        bool isNumber = false;
        const int dpi = value.toInt(&isNumber);
        result_.Paper.DotsPerInch = { static_cast<float>(dpi), static_cast<float>(dpi) };
        return (isNumber && dpi >= kLeastDpi && dpi <= kMostDpi)
            || Fail(QStringLiteral("--dpi takes a number from %1 to %2").arg(kLeastDpi).arg(kMostDpi));
    }

    bool TakeSettings(const QString& value)
    {
        result_.Settings = value;
        return !value.isEmpty() || Fail(QStringLiteral("--settings takes a settings file"));
    }

    bool TakePerPage(const QString& value)
    {
        bool isNumber = false;
        result_.PerPage = value.toInt(&isNumber);
        return (isNumber && result_.PerPage >= 1 && result_.PerPage <= kWindowsPerPage)
            || Fail(QStringLiteral("--per-page takes a number from 1 to %1").arg(kWindowsPerPage));
    }

    bool TakeDescription(const QString& value)
    {
        result_.Description = value;
        return true;
    }

    bool CheckTogether()
    {
        if (result_.Files.isEmpty())
            return Fail(QStringLiteral("too few arguments"));
        if (!result_.Pdf.isEmpty() && !result_.Printer.isEmpty())
            return Fail(QStringLiteral("--to and --printer exclude each other"));
        const PerAxis& paper = result_.Paper.Paper;
        const PerAxis& offset = result_.Paper.Offset;
        return (2 * offset.X < paper.X && 2 * offset.Y < paper.Y)
            || Fail(QStringLiteral("--offset leaves nothing of the paper"));
    }

    QString& error_;
    PrintArguments result_;
};

} // namespace

std::optional<PrintArguments> PrintParse(const QStringList& words, QString& error)
{
    return PrintParser(error).Run(words);
}

} // namespace tarvik
