#include "print/printer/paperSizes.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr float kMmPerInch = 25.4F;

constexpr PerAxis Millimetres(float x, float y)
{
    return { x / kMmPerInch, y / kMmPerInch };
}

} // namespace

const std::array<NamedPaper, 5>& NamedPapers()
{
    static constexpr std::array<NamedPaper, 5> kPapers{ { { "A3", "iso_a3_297x420mm", Millimetres(297, 420) },
        { "A4", "iso_a4_210x297mm", Millimetres(210, 297) }, { "A5", "iso_a5_148x210mm", Millimetres(148, 210) },
        { "Letter", "na_letter_8.5x11in", { 8.5F, 11 } }, { "Legal", "na_legal_8.5x14in", { 8.5F, 14 } } } };
    return kPapers;
}

const NamedPaper* PaperNamed(const QString& name)
{
    const auto& papers = NamedPapers();
    const auto found = std::find_if(papers.begin(), papers.end(),
        [&name](const NamedPaper& paper) { return name.compare(QLatin1String(paper.Name), Qt::CaseInsensitive) == 0; });
    return found == papers.end() ? nullptr : &*found;
}

} // namespace tarvik
