// link/classes/model.h: file classes: the kind of instrument file being worked on, its extension, texts and folders.
#pragma once

#include "app/text/textNumber.h"

#include <QString>

#include <array>

namespace tarvik {

/// The numbers are fixed: settings, menus and the mask below use them.
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

/// Slots of a class's caption table, from 1.
enum class CaptionSlot {
    HintEdit = 1,
    HintSelect = 2,
    HintDownload = 3,
    HintUpload = 4,
    HintNew = 5,
    ControlTitle = 6,
    Noun = 7, ///< the class's name in messages
    HintInstrument = 8,
    HintPc = 9,
    HelpSelect = 10,
    Editor = 11 ///< keeps its previous value for screen shots
};
inline constexpr int kCaptionSlots = 11;

/// Process-wide selection of one file class. `ModFileInit` is its only writer.
struct FileClassState {
    FileClass CurrentFileClass = FileClassNone;
    int FileClassMask = 0; ///< FileClassBit of the class; unchanged when the class becomes unknown
    std::array<TextNumber<0>, kCaptionSlots> CaptionIds{}; ///< slot 1 first
    ClassFolders PcPaths; ///< remembered PC folder of each class
    ClassFolders InstrPaths; ///< remembered instrument folder of each class
};
FileClassState& FileClasses();

/// Selects `fileClass`. Any value outside 1 to 6 is reported to the debug channel and selects FileClassUnknown.
void ModFileInit(FileClass fileClass);

/// Text in `slot` of the current class; none while no class is selected.
TextNumber<0> ModCaption(CaptionSlot slot);

/// Extension of classes 1 to 4 and 6, with its point; empty for any other.
QString ModGetExtension(FileClass fileClass);

/// True for the classes of which the instrument holds a single list: a new one replaces it whatever its name.
bool ModHasOneList(FileClass fileClass);

/// True for screen shots and unknown classes, whose files are in folders that the user can choose. Any other class has
/// one fixed folder on the instrument.
bool ModHasInstrFolders(FileClass fileClass);

/// True if the extension of `name`, ignoring case, belongs to a class whose bit is set in `mask`.
bool FileExtMatches(const QString& name, int mask);

/// Reads and writes the folders of classes 1 to 4 and 6; those of screen shots are not stored.
void ModLoadPaths(const QString& iniFile);
void ModSavePaths(const QString& iniFile);

} // namespace tarvik
