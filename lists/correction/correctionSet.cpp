#include "lists/correction/correctionSet.h"

#include "app/message/message.h"
#include "app/platform/paths.h"
#include "app/text/ansi.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/numberPicture.h"
#include "closed/loader.h"
#include "link/classes/model.h"
#include "link/classes/textRules.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/fieldCheck.h"

#include <QFileInfo>

#include <algorithm>
#include <cstring>

namespace tarvik {

namespace {

constexpr double kHzPerMegahertz = 1e6;

template <size_t Size>
void StoreText(char (&field)[Size], const QString& text)
{
    const QByteArray bytes = ToAnsi(text).left(Size - 1);
    std::memset(field, 0, Size);
    std::memcpy(field, bytes.constData(), static_cast<size_t>(bytes.size()));
}

template <size_t Size>
QString TextIn(const char (&field)[Size])
{
    return FromAnsi(QByteArrayView(field, static_cast<qsizetype>(qstrnlen(field, Size))));
}

QString Megahertz(double frequencyHz)
{
    return PlainNumberText(frequencyHz / kHzPerMegahertz);
}

/// The nouns of the header's own boxes are English in every language.
bool Refuse(const QString& noun)
{
    MsgOk1(TextId::ListNameMissing, noun);
    return false;
}

/// A text that shows the frequency of the header keeps its fraction of a Hz.
bool CheckFrequency(QString& text, double& frequencyHz)
{
    const bool isUnchanged = text == Megahertz(frequencyHz) || text == CellText(frequencyHz, kMegahertzCell);
    double value = frequencyHz;
    if (!CheckCellScaled(text, value, Limits().FrequencyHz, kMegahertzCell, { false, false })) {
        MsgOk(TextId::NotANumber);
        return false;
    }
    const bool isInLimits = std::clamp(frequencyHz, Limits().FrequencyHz.Min, Limits().FrequencyHz.Max) == frequencyHz;
    if (!isUnchanged || !isInLimits)
        frequencyHz = value;
    return true;
}

bool CheckCode(QString& text, std::int16_t& code)
{
    if (CheckCellInt(text, code, Limits().AntennaCode, "#0", { false, false }))
        return true;
    MsgOk(TextId::NotANumber);
    return false;
}

/// Loads a file into the store and copies the set; the first status that is not 0.
std::int16_t FetchSet(const QString& path, CorrSet& set, char (&name)[TVFIO_TEXT_SIZE])
{
    const TvFioApi& store = TvFio();
    std::int16_t count = 0;
    std::int16_t status = store.AntCorrLoadFile(ModulePath(path).constData());
    if (status == 0)
        status = store.AntCorrGetHeader(&set.Header);
    if (status == 0)
        status = store.AntCorrGetModIdent(&set.Identity);
    if (status == 0)
        status = store.AntCorrGetKFactor(set.Records.KFactor.data(), &count);
    if (status == 0)
        status = store.AntCorrGetOmniphase(set.Records.Omniphase.data(), &count);
    if (status == 0)
        status = store.AntCorrGetAzimuth(set.Records.Azimuth.data(), &count);
    return status == 0 ? store.AntCorrGetFileName(name, TVFIO_TEXT_SIZE) : status;
}

} // namespace

CorrSet::CorrSet()
{
    Clear();
}

void CorrSet::Clear()
{
    const TvFioApi& store = TvFio();
    FileName.clear();
    Records.Clear();
    Header = {}; // in case the store hands out none
    Identity = {};
    store.AntCorrClear();
    store.AntCorrGetHeader(&Header);
    store.AntCorrGetModIdent(&Identity);
}

CorrHeaderTexts CorrHeaderTextsOf(const CorrSet& set)
{
    return { set.FileName, TextIn(set.Header.AntennaName), TextIn(set.Header.ManufacturerName),
        QString::number(set.Header.AntennaCode), Megahertz(set.Header.StartFrequencyHz),
        Megahertz(set.Header.StopFrequencyHz) };
}

bool CheckCorrBox(CorrBox box, CorrHeaderTexts& texts, CorrSet& set)
{
    CorrHeader& header = set.Header;
    switch (box) {
    case CorrBox::FileName:
        if (!ValidListName(texts.FileName))
            return Refuse(LngStr(ModCaption(CaptionSlot::Noun)));
        set.FileName = texts.FileName;
        return true;
    case CorrBox::AntName:
        if (texts.AntennaName.isEmpty())
            return Refuse(QStringLiteral("Antenna"));
        StoreText(header.AntennaName, texts.AntennaName);
        return true;
    case CorrBox::AntCode:
        return CheckCode(texts.AntennaCode, header.AntennaCode);
    case CorrBox::StartFreq:
        return CheckFrequency(texts.StartFrequency, header.StartFrequencyHz);
    case CorrBox::StopFreq:
        return CheckFrequency(texts.StopFrequency, header.StopFrequencyHz);
    case CorrBox::ManufacturerName:
        if (!ValidText(texts.ManufacturerName))
            return Refuse(QStringLiteral("Manufacturer"));
        StoreText(header.ManufacturerName, texts.ManufacturerName);
        return true;
    }
    return true;
}

bool LoadCorrSet(const QString& path, CorrSet& set)
{
    return ReadCorrSet(path, set) == 0;
}

std::int16_t ReadCorrSet(const QString& path, CorrSet& set)
{
    set.Clear();
    char name[TVFIO_TEXT_SIZE] = {};
    const std::int16_t status = FetchSet(path, set, name);
    if (status == 0)
        set.FileName = QFileInfo(QString::fromUtf8(name)).completeBaseName();
    else
        set.Clear();
    return status;
}

bool SetCorrHeader(const CorrSet& set)
{
    if (TvFio().AntCorrSetHeader(&set.Header) == 0)
        return true;
    MsgRaw(MsgStyle(MsgButtons::Ok, MsgIcon::Exclamation), QStringLiteral("Error setting header"),
        HelpId::CommandCorrectionSetEditor);
    return false;
}

bool SaveCorrSet(const QString& path)
{
    return MayWriteFile(path) && StoreCorrSet(path) == 0;
}

std::int16_t StoreCorrSet(const QString& path)
{
    return TvFio().AntCorrSaveFile(ModulePath(path).constData());
}

void SetCorrTexts(const QString& antennaName, const QString& manufacturerName, CorrHeader& header)
{
    StoreText(header.AntennaName, antennaName);
    StoreText(header.ManufacturerName, manufacturerName);
}

} // namespace tarvik
