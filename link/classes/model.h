// link/classes/model.h: file classes: what kind of instrument file is being worked on, its extension, its texts, its
// folders.
#pragma once

#include "app/text/textNumber.h"

#include <QString>

#include <array>

namespace tarvik {

/// The number of a class is fixed: files of settings, menus and the mask below count with it.
enum class FileClass : qint16 {
    FileClassNone = 0,
    FileClassAntennaList = 1,
    FileClassKfactorTable = 2,
    FileClassMemoryList = 3,
    FileClassSuppressList = 4,
    FileClassScreenShot = 5,
    FileClassCorrectionSet = 6,
    FileClassUnknown = 7
};
using enum FileClass;

constexpr int FileClassNumber(FileClass fileClass)
{
    return static_cast<int>(fileClass);
}

/// The class's bit in a mask of classes: 2 to its number.
constexpr int FileClassBit(FileClass fileClass)
{
    return 1 << FileClassNumber(fileClass);
}

/// A folder for each class.
struct ClassFolders : std::array<QString, 8> {
    QString& operator[](FileClass fileClass)
    {
        return at(static_cast<size_t>(fileClass));
    }
    const QString& operator[](FileClass fileClass) const
    {
        return at(static_cast<size_t>(fileClass));
    }
};

/// Places in a class's caption table, counted from 1.
enum CaptionSlot {
    CaptionHintEdit = 1,
    CaptionHintSelect = 2,
    CaptionHintDownload = 3,
    CaptionHintUpload = 4,
    CaptionHintNew = 5,
    CaptionControlTitle = 6,
    CaptionNoun = 7, ///< the class's name in messages
    CaptionHintInstrument = 8,
    CaptionHintPc = 9,
    CaptionHelpSelect = 10,
    CaptionEditor = 11 ///< keeps its former value for screen shots
};
inline constexpr int kCaptionSlots = 11;

/// Process-wide selection of one file class. `ModFileInit` is its only writer.
struct FileClassState {
    FileClass CurrentFileClass = FileClassNone;
    int FileClassMask = 0; ///< FileClassBit of the class; it stays when the class becomes unknown
    std::array<TextNumber<0>, kCaptionSlots> CaptionIds{}; ///< slot 1 first
    ClassFolders PcPaths; ///< remembered PC folder of each class
    ClassFolders InstrPaths; ///< remembered instrument folder of each class
};
FileClassState& FileClasses();

/// Selects `fileClass`. Any value but a class from 1 to 6 is reported to the debug route and selects
/// FileClassUnknown.
void ModFileInit(FileClass fileClass);

/// Text in `slot` of the present class; none while no class is selected.
TextNumber<0> ModCaption(CaptionSlot slot);

/// Extension text of classes 1 to 4 and 6, with its point; empty for any other.
QString ModGetExtension(FileClass fileClass);

/// True for the classes of which the instrument holds one list, so that a new one replaces it whatever its name.
bool ModHoldsOneList(FileClass fileClass);

/// True for screen shots and unknown classes: their files lie in folders that the user can choose. Those of any other
/// class lie in one folder of the instrument.
bool ModHasInstrFolders(FileClass fileClass);

/// True if the extension of `name`, ignoring case, belongs to a class whose bit is set in `mask`.
bool FileExtMatches(const QString& name, int mask);

/// Reads and writes the folders of classes 1, 2, 3, 4 and 6; those of screen shots live for one run only.
void ModLoadPaths(const QString& iniFile);
void ModSavePaths(const QString& iniFile);

} // namespace tarvik
