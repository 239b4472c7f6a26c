// link/classes/model.h: file classes: what kind of instrument file is being worked on, its extension, its texts, its
// folders.
#pragma once

#include <QString>

#include <array>

namespace tarvik {

enum FileClass : qint16 {
    FileClassNone = 0,
    FileClassAntennaList = 1,
    FileClassKfactorTable = 2,
    FileClassMemoryList = 3,
    FileClassSuppressList = 4,
    FileClassScreenShot = 5,
    FileClassCorrectionSet = 6,
    FileClassUnknown = 7
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
    int FileClassMask = 0; ///< 2 to the class
    std::array<int, kCaptionSlots> CaptionIds{}; ///< text numbers, slot 1 first
    std::array<QString, 8> PcPaths; ///< remembered PC folder of each class, index = class
    std::array<QString, 8> InstrPaths; ///< remembered instrument folder of each class
};
FileClassState& FileClasses();

/// Selects `fileClass`; any value outside 1 to 6 selects FileClassUnknown.
void ModFileInit(int fileClass);

/// Text number in `slot` of the present class; 0 while no class is selected.
int ModCaption(CaptionSlot slot);

/// Extension text of classes 1 to 4 and 6, with its point; empty for any other.
QString ModGetExtension(int fileClass);

/// True for the classes of which the instrument holds one list, so that a new one replaces it whatever its name.
bool ModHoldsOneList(int fileClass);

/// True for screen shots and unknown classes: their files lie in folders that the user can choose. Those of any other
/// class lie in one folder of the instrument.
bool ModHasInstrFolders(int fileClass);

/// True if the extension of `name`, ignoring case, belongs to a class whose bit is set in `mask`.
bool FileExtMatches(const QString& name, int mask);

/// Reads and writes the folders of classes 1, 2, 3, 4 and 6; those of screen shots live for one run only.
void ModLoadPaths(const QString& iniFile);
void ModSavePaths(const QString& iniFile);

} // namespace tarvik
