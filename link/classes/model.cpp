#include "link/classes/model.h"

#include "app/message/message.h"
#include "app/platform/debug.h"
#include "app/platform/processState.h"
#include "app/settings/ini.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

#include <QFileInfo>

#include <algorithm>

namespace tarvik {

namespace {

/// The texts of a file class.
struct ClassTexts {
    TextNumber<0> FirstCaption; ///< of slots 1 to 10, which are consecutive
    TextNumber<0> EditorCaption; ///< slot 11; none keeps the previous value
    TextNumber<0> Extension;
};

/// By file class, from 1.
constexpr std::array<ClassTexts, 6> kClassTexts{
    { { TextId::AntennaListCaptions, TextId::AntennaListKeyword, TextId::AntennaListExtension },
        { TextId::KfactorTableCaptions, TextId::KfactorTableKeyword, TextId::KfactorTableExtension },
        { TextId::MemoryListCaptions, TextId::MemoryListKeyword, TextId::MemoryListExtension },
        { TextId::SuppressListCaptions, TextId::SuppressListKeyword, TextId::SuppressListExtension },
        { TextId::ScreenShotCaptions, {}, TextId::PngExtension },
        { TextId::CorrectionSetCaptions, TextId::CorrectionSetKeyword, TextId::CorrectionSetExtension } }
};

/// The classes whose folders are stored in the settings.
constexpr std::array kStoredClasses{ FileClassAntennaList, FileClassKfactorTable, FileClassMemoryList,
    FileClassSuppressList, FileClassCorrectionSet };

/// The order in which extensions are compared.
constexpr std::array kMatchOrder{ FileClassScreenShot, FileClassAntennaList, FileClassKfactorTable, FileClassMemoryList,
    FileClassSuppressList, FileClassCorrectionSet };

/// nullptr for a value that is no class.
const ClassTexts* TextsOf(FileClass fileClass)
{
    const bool isClass = fileClass >= FileClassAntennaList && fileClass <= FileClassCorrectionSet;
    return isClass ? &kClassTexts[static_cast<size_t>(fileClass) - 1] : nullptr;
}

} // namespace

FileClassState& FileClasses()
{
    static ProcessState<FileClassState> state;
    return state.Get();
}

void ModFileInit(FileClass fileClass)
{
    FileClassState& state = FileClasses();
    const ClassTexts* texts = TextsOf(fileClass);
    if (texts == nullptr) {
        DebugReport("ModFileInit");
        state.CurrentFileClass = FileClassUnknown;
        return;
    }
    state.CurrentFileClass = fileClass;
    state.FileClassMask = FileClassBit(fileClass);
    for (int slot = 0; slot + 1 < kCaptionSlots; ++slot)
        state.CaptionIds[static_cast<size_t>(slot)] = texts->FirstCaption + slot;
    if (!texts->EditorCaption.IsNone())
        state.CaptionIds.back() = texts->EditorCaption;
}

TextNumber<0> ModCaption(CaptionSlot slot)
{
    const FileClassState& state = FileClasses();
    return TextsOf(state.CurrentFileClass) == nullptr ? TextNumber<0>()
                                                      : state.CaptionIds[static_cast<size_t>(slot) - 1];
}

QString ModGetExtension(FileClass fileClass)
{
    const ClassTexts* texts = TextsOf(fileClass);
    if (texts == nullptr || fileClass == FileClassScreenShot) {
        DebugReport("ModGetExtension");
        return {};
    }
    return LngStr(texts->Extension);
}

bool ModHasOneList(FileClass fileClass)
{
    return fileClass == FileClassAntennaList || fileClass == FileClassMemoryList || fileClass == FileClassSuppressList;
}

bool ModHasInstrFolders(FileClass fileClass)
{
    return fileClass == FileClassScreenShot || TextsOf(fileClass) == nullptr;
}

bool FileExtMatches(const QString& name, int mask)
{
    const QString extension = u'.' + QFileInfo(name).suffix().toLower();
    return std::any_of(kMatchOrder.begin(), kMatchOrder.end(), [&extension, mask](FileClass fileClass) {
        return (mask & FileClassBit(fileClass)) != 0 && extension == LngStr(TextsOf(fileClass)->Extension).toLower();
    });
}

void ModLoadPaths(const QString& iniFile)
{
    FileClassState& state = FileClasses();
    for (const FileClass fileClass : kStoredClasses)
        state.PcPaths[fileClass] = IniReadModelPcPath(iniFile, FileClassNumber(fileClass));
    for (const FileClass fileClass : kStoredClasses)
        state.InstrPaths[fileClass] = IniReadModelInstrPath(iniFile, FileClassNumber(fileClass));
}

void ModSavePaths(const QString& iniFile)
{
    const FileClassState& state = FileClasses();
    for (const FileClass fileClass : kStoredClasses)
        IniWriteModelPcPath(iniFile, FileClassNumber(fileClass), state.PcPaths[fileClass]);
    for (const FileClass fileClass : kStoredClasses)
        IniWriteModelInstrPath(iniFile, FileClassNumber(fileClass), state.InstrPaths[fileClass]);
}

} // namespace tarvik
