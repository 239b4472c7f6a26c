#include "print/printer/queues.h"

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <memory>

#include <cups/cups.h>

namespace tarvik {

namespace {

constexpr float kHundredthsPerInch = 2540; ///< of a millimetre
constexpr qint64 kPieceBytes = 1 << 16;

/// Destinations of the scheduler.
class Destinations {
public:
    Destinations()
        : count_(cupsGetDests2(CUPS_HTTP_DEFAULT, &all_))
    {
    }
    ~Destinations()
    {
        cupsFreeDests(count_, all_);
    }
    Destinations(const Destinations&) = delete;
    Destinations& operator=(const Destinations&) = delete;

    QStringList Names() const
    {
        QStringList names;
        for (int at = 0; at < count_; ++at) {
            if (all_[at].instance == nullptr)
                names.append(QString::fromUtf8(all_[at].name));
        }
        return names;
    }

    cups_dest_t* Find(const QString& name) const
    {
        return cupsGetDest(name.toUtf8().constData(), nullptr, count_, all_);
    }

    QString DefaultName() const
    {
        const cups_dest_t* found = cupsGetDest(nullptr, nullptr, count_, all_);
        return found == nullptr ? QString() : QString::fromUtf8(found->name);
    }

private:
    cups_dest_t* all_ = nullptr;
    int count_ = 0;
};

struct FreeInfo {
    void operator()(cups_dinfo_t* info) const
    {
        cupsFreeDestInfo(info);
    }
};
using Info = std::unique_ptr<cups_dinfo_t, FreeInfo>;

/// A destination with what it supports.
struct Destination {
    explicit Destination(cups_dest_t* found)
        : Dest(found)
        , Support(found == nullptr ? nullptr : cupsCopyDestInfo(CUPS_HTTP_DEFAULT, found))
    {
    }

    bool Supports(const char* option, const char* value) const
    {
        return cupsCheckDestSupported(CUPS_HTTP_DEFAULT, Dest, Support.get(), option, value) != 0;
    }

    cups_dest_t* Dest;
    Info Support;
};

float Inches(int hundredths)
{
    return static_cast<float>(hundredths) / kHundredthsPerInch;
}

PaperSize PaperOf(const Destination& at, const cups_size_t& size)
{
    PaperSize paper;
    paper.Keyword = QString::fromUtf8(size.media);
    cups_size_t named = size;
    const char* name =
        cupsLocalizeDestMedia(CUPS_HTTP_DEFAULT, at.Dest, at.Support.get(), CUPS_MEDIA_FLAGS_DEFAULT, &named);
    paper.Name = name == nullptr ? paper.Keyword : QString::fromUtf8(name);
    paper.Size = { Inches(size.width), Inches(size.length) };
    paper.Offset = { Inches(std::max(size.left, size.right)), Inches(std::max(size.top, size.bottom)) };
    return paper;
}

void ReadPapers(const Destination& at, PrinterAbilities& abilities)
{
    cups_size_t size{};
    const int count = cupsGetDestMediaCount(CUPS_HTTP_DEFAULT, at.Dest, at.Support.get(), CUPS_MEDIA_FLAGS_DEFAULT);
    for (int index = 0; index < count; ++index) {
        if (cupsGetDestMediaByIndex(
                CUPS_HTTP_DEFAULT, at.Dest, at.Support.get(), index, CUPS_MEDIA_FLAGS_DEFAULT, &size)
            != 0)
            abilities.Papers.append(PaperOf(at, size));
    }
    if (cupsGetDestMediaDefault(CUPS_HTTP_DEFAULT, at.Dest, at.Support.get(), CUPS_MEDIA_FLAGS_DEFAULT, &size) != 0)
        abilities.DefaultPaper = QString::fromUtf8(size.media);
}

QStringList KeywordsOf(const Destination& at, const char* option)
{
    QStringList words;
    ipp_attribute_t* found = cupsFindDestSupported(CUPS_HTTP_DEFAULT, at.Dest, at.Support.get(), option);
    for (int index = 0; index < ippGetCount(found); ++index) {
        if (const char* word = ippGetString(found, index, nullptr); word != nullptr)
            words.append(QString::fromUtf8(word));
    }
    return words;
}

float ResolutionOf(const Destination& at)
{
    ipp_attribute_t* found = cupsFindDestDefault(CUPS_HTTP_DEFAULT, at.Dest, at.Support.get(), "printer-resolution");
    if (found == nullptr)
        return 0;
    int vertical = 0;
    ipp_res_t units = IPP_RES_PER_INCH;
    const int horizontal = ippGetResolution(found, 0, &vertical, &units);
    return units == IPP_RES_PER_INCH ? static_cast<float>(std::min(horizontal, vertical)) : 0;
}

const char* KeywordOf(Sides sides)
{
    switch (sides) {
    case Sides::LongEdge:
        return CUPS_SIDES_TWO_SIDED_PORTRAIT;
    case Sides::ShortEdge:
        return CUPS_SIDES_TWO_SIDED_LANDSCAPE;
    default:
        return CUPS_SIDES_ONE_SIDED;
    }
}

/// The options of a job, without those that the printer refuses.
class JobOptions {
public:
    explicit JobOptions(const Destination& at)
        : at_(at)
    {
    }
    ~JobOptions()
    {
        cupsFreeOptions(Count, Options);
    }
    JobOptions(const JobOptions&) = delete;
    JobOptions& operator=(const JobOptions&) = delete;

    void Add(const char* name, const QByteArray& value)
    {
        if (!value.isEmpty() && at_.Supports(name, value.constData()))
            Count = cupsAddOption(name, value.constData(), Count, &Options);
    }

    int Count = 0;
    cups_option_t* Options = nullptr;

private:
    const Destination& at_;
};

struct FreeAnswer {
    void operator()(ipp_t* answer) const
    {
        ippDelete(answer);
    }
};

/// Of the answer's number, which is 0 for a job that is not known.
JobState JobStateOf(int state)
{
    switch (static_cast<ipp_jstate_t>(state)) {
    case IPP_JSTATE_PENDING:
    case IPP_JSTATE_HELD:
    case IPP_JSTATE_PROCESSING:
    case IPP_JSTATE_STOPPED:
        return JobState::Waiting;
    case IPP_JSTATE_CANCELED:
        return JobState::Cancelled;
    case IPP_JSTATE_ABORTED:
        return JobState::Failed;
    default:
        return JobState::Done;
    }
}

QString LastError()
{
    return QString::fromUtf8(cupsLastErrorString());
}

bool SendFile(QFile& file)
{
    while (true) {
        const QByteArray piece = file.read(kPieceBytes);
        if (piece.isEmpty())
            return file.error() == QFile::NoError;
        if (cupsWriteRequestData(CUPS_HTTP_DEFAULT, piece.constData(), static_cast<size_t>(piece.size()))
            != HTTP_STATUS_CONTINUE)
            return false;
    }
}

class CupsQueues final : public PrinterSystem {
public:
    QStringList Names() const override;
    QString DefaultName() const override;
    std::optional<PrinterAbilities> AbilitiesOf(const QString& printer) const override;
    bool PrintsToFile(const QString& printer) const override;
    SentJob Send(const PrinterChoice& choice, const QString& title, const QString& pdfPath) override;
    JobState StateOf(const QString& printer, int job) const override;
};

QStringList CupsQueues::Names() const
{
    return Destinations().Names();
}

QString CupsQueues::DefaultName() const
{
    return Destinations().DefaultName();
}

std::optional<PrinterAbilities> CupsQueues::AbilitiesOf(const QString& printer) const
{
    const Destinations destinations;
    const Destination at(destinations.Find(printer));
    if (at.Support == nullptr)
        return {};
    PrinterAbilities abilities;
    ReadPapers(at, abilities);
    abilities.Bins = KeywordsOf(at, CUPS_MEDIA_SOURCE);
    abilities.TwoSided = at.Supports(CUPS_SIDES, CUPS_SIDES_TWO_SIDED_PORTRAIT);
    abilities.Colour = at.Supports(CUPS_PRINT_COLOR_MODE, CUPS_PRINT_COLOR_MODE_COLOR);
    for (const PrintQuality quality : { PrintQuality::Draft, PrintQuality::Normal, PrintQuality::High }) {
        if (at.Supports(CUPS_PRINT_QUALITY, QByteArray::number(static_cast<int>(quality)).constData()))
            abilities.Qualities.append(quality);
    }
    abilities.MostCopies = at.Supports(CUPS_COPIES, "999") ? 999 : at.Supports(CUPS_COPIES, "99") ? 99 : 1;
    abilities.DotsPerInch = ResolutionOf(at);
    return abilities;
}

bool CupsQueues::PrintsToFile(const QString& /*printer*/) const
{
    return false;
}

SentJob CupsQueues::Send(const PrinterChoice& choice, const QString& title, const QString& pdfPath)
{
    const Destinations destinations;
    const Destination at(destinations.Find(choice.Printer));
    if (at.Support == nullptr)
        return { 0, LastError() };
    QFile file(pdfPath);
    if (!file.open(QIODevice::ReadOnly))
        return { 0, file.errorString() };
    JobOptions options(at);
    options.Add(CUPS_MEDIA, choice.Paper.toUtf8());
    options.Add(CUPS_COPIES, QByteArray::number(choice.Copies));
    options.Add(CUPS_SIDES, KeywordOf(choice.Side));
    options.Add(CUPS_PRINT_COLOR_MODE, choice.Colour ? CUPS_PRINT_COLOR_MODE_COLOR : CUPS_PRINT_COLOR_MODE_MONOCHROME);
    options.Add(CUPS_MEDIA_SOURCE, choice.Bin.toUtf8());
    options.Add(CUPS_PRINT_QUALITY, QByteArray::number(static_cast<int>(choice.Quality)));
    int job = 0;
    const QByteArray name = title.toUtf8();
    if (cupsCreateDestJob(
            CUPS_HTTP_DEFAULT, at.Dest, at.Support.get(), &job, name.constData(), options.Count, options.Options)
        != IPP_STATUS_OK)
        return { 0, LastError() };
    const bool isSent = cupsStartDestDocument(CUPS_HTTP_DEFAULT, at.Dest, at.Support.get(), job, name.constData(),
                            CUPS_FORMAT_PDF, 0, nullptr, 1)
            == HTTP_STATUS_CONTINUE
        && SendFile(file);
    if (cupsFinishDestDocument(CUPS_HTTP_DEFAULT, at.Dest, at.Support.get()) == IPP_STATUS_OK && isSent)
        return { job, {} };
    const QString error = LastError();
    cupsCancelDestJob(CUPS_HTTP_DEFAULT, at.Dest, job);
    return { 0, error };
}

JobState CupsQueues::StateOf(const QString& printer, int job) const
{
    char uri[HTTP_MAX_URI];
    httpAssembleURIf(HTTP_URI_CODING_ALL, uri, sizeof(uri), "ipp", nullptr, "localhost", 0, "/printers/%s",
        printer.toUtf8().constData());
    ipp_t* request = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri);
    ippAddInteger(request, IPP_TAG_OPERATION, IPP_TAG_INTEGER, "job-id", job);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr, "job-state");
    const std::unique_ptr<ipp_t, FreeAnswer> answer(cupsDoRequest(CUPS_HTTP_DEFAULT, request, "/"));
    return JobStateOf(ippGetInteger(ippFindAttribute(answer.get(), "job-state", IPP_TAG_ENUM), 0));
}

} // namespace

PrinterSystem& SystemQueues()
{
    static CupsQueues queues;
    return queues;
}

} // namespace tarvik
