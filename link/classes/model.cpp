#include "link/classes/model.h"

#include "app/message/message.h"
#include "app/platform/debug.h"
#include "app/platform/processState.h"
#include "app/settings/ini.h"
#include "app/text/lang.h"

#include <QFileInfo>

#include <algorithm>
#include <numeric>

namespace tarvik {

namespace {

/// What is fixed of a file class.
struct ClassTexts {
    int FirstCaptionId; ///< of slots 1 to 10, which follow each other
    int EditorCaptionId; ///< slot 11; 0 leaves the former value
    int ExtensionId;
};

/// By file class, from 1.
constexpr std::array<ClassTexts, 6> kClassTexts{ { { 12443, 10753, 10750 }, { 12453, 10758, 10755 },
    { 12463, 10763, 10760 }, { 12473, 10768, 10765 }, { 12483, 0, 11510 }, { 12493, 10773, 10770 } } };

/// The classes whose folders the settings keep.
constexpr std::array kStoredClasses{ FileClassAntennaList, FileClassKfactorTable, FileClassMemoryList,
    FileClassSuppressList, FileClassCorrectionSet };

/// The order in which a file's extension is compared.
constexpr std::array kMatchOrder{ FileClassScreenShot, FileClassAntennaList, FileClassKfactorTable, FileClassMemoryList,
    FileClassSuppressList, FileClassCorrectionSet };

/// Null for a number that is no class.
const ClassTexts* TextsOf(int fileClass)
{
    const bool isClass = fileClass >= FileClassAntennaList && fileClass <= FileClassCorrectionSet;
    return isClass ? &kClassTexts[static_cast<size_t>(fileClass - 1)] : nullptr;
}

} // namespace

FileClassState& FileClasses()
{
    static ProcessState<FileClassState> state;
    return state.Get();
}

void ModFileInit(int fileClass)
{
    FileClassState& state = FileClasses();
    const ClassTexts* texts = TextsOf(fileClass);
    if (texts == nullptr) {
        DebugReport("ModFileInit");
        state.CurrentFileClass = FileClassUnknown;
        return;
    }
    state.CurrentFileClass = static_cast<FileClass>(fileClass);
    state.FileClassMask = 1 << fileClass;
    std::iota(state.CaptionIds.begin(), state.CaptionIds.end() - 1, texts->FirstCaptionId);
    if (texts->EditorCaptionId != 0)
        state.CaptionIds.back() = texts->EditorCaptionId;
}

int ModCaption(CaptionSlot slot)
{
    const FileClassState& state = FileClasses();
    return TextsOf(state.CurrentFileClass) == nullptr ? 0 : state.CaptionIds[static_cast<size_t>(slot - 1)];
}

QString ModGetExtension(int fileClass)
{
    const ClassTexts* texts = TextsOf(fileClass);
    if (texts == nullptr || fileClass == FileClassScreenShot) {
        DebugReport("ModGetExtension");
        return {};
    }
    return LngStr(texts->ExtensionId);
}

bool ModHoldsOneList(int fileClass)
{
    return fileClass == FileClassAntennaList || fileClass == FileClassMemoryList || fileClass == FileClassSuppressList;
}

bool ModHasInstrFolders(int fileClass)
{
    return fileClass == FileClassScreenShot || TextsOf(fileClass) == nullptr;
}

bool FileExtMatches(const QString& name, int mask)
{
    const QString extension = u'.' + QFileInfo(name).suffix().toLower();
    return std::any_of(kMatchOrder.begin(), kMatchOrder.end(), [&extension, mask](FileClass fileClass) {
        return (mask & (1 << fileClass)) != 0 && extension == LngStr(TextsOf(fileClass)->ExtensionId).toLower();
    });
}

void ModLoadPaths(const QString& iniFile)
{
    FileClassState& state = FileClasses();
    for (const FileClass fileClass : kStoredClasses)
        state.PcPaths[fileClass] = IniReadModelPcPath(iniFile, fileClass);
    for (const FileClass fileClass : kStoredClasses)
        state.InstrPaths[fileClass] = IniReadModelInstrPath(iniFile, fileClass);
}

void ModSavePaths(const QString& iniFile)
{
    const FileClassState& state = FileClasses();
    for (const FileClass fileClass : kStoredClasses)
        IniWriteModelPcPath(iniFile, fileClass, state.PcPaths[fileClass]);
    for (const FileClass fileClass : kStoredClasses)
        IniWriteModelInstrPath(iniFile, fileClass, state.InstrPaths[fileClass]);
}

} // namespace tarvik
