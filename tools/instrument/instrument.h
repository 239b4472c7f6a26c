// tools/instrument/instrument.h: the receiver behind its commands.
#pragma once

#include "tools/instrument/answers.h"
#include "tools/instrument/errors.h"
#include "tools/instrument/messageReader.h"
#include "tools/instrument/storage.h"

#include <functional>
#include <string>

namespace tarvik {

/// What the receiver says of itself, in Windows-1252.
struct Identity {
    std::string Maker = "TARVIK";
    std::string Model = "TR-200DF";
    std::string Serial = "100042";
    std::string Firmware = "4.30";
};

/// The file families, with the word that stands for each in commands.
enum class FileFamily { All, Antenna, Kfactor, Memory, Suppress, Correction };

/// The folder of a family; none for `All`.
WirePath FamilyFolder(FileFamily family);

/// The folder that a receiver puts its pictures into.
WirePath ScreenShotFolder();

class Instrument {
public:
    /// `screen` answers the display as a PNG file. The storage stays the caller's.
    Instrument(Storage& storage, Identity identity, std::function<std::string()> screen);

    /// A client begins: no errors, at the root.
    void Reset();

    /// Runs a command, of which a block has been taken before.
    void Execute(const Command& command, Answers& answers);

    /// A command's block begins, comes, or will never be complete.
    void BeginBlock(const Command& command, std::uint64_t size);
    void TakeBlock(std::string_view bytes);
    void AbandonBlock();

    /// Something was no command.
    void ReportBad();

    /// The next command that works on files or settings will be refused.
    void RefuseNext()
    {
        refuseNext_ = true;
    }

    /// The errors that have not been asked for.
    ErrorQueue& Errors()
    {
        return errors_;
    }

private:
    struct Row;
    using Run = InstrumentError (Instrument::*)(const Command&, Answers&);

    static const Row* FindRow(const std::string& header, bool isQuery);
    const Row* RowOf(const Command& command);
    InstrumentError Check(const Row* row, const Command& command);
    InstrumentError PrepareStore(const Command& command, std::uint64_t size);

    InstrumentError Identify(const Command&, Answers&);
    InstrumentError Clear(const Command&, Answers&);
    InstrumentError Complete(const Command&, Answers&);
    InstrumentError OldestError(const Command&, Answers&);
    InstrumentError GetFolder(const Command&, Answers&);
    InstrumentError SetFolder(const Command&, Answers&);
    InstrumentError MakeFolder(const Command&, Answers&);
    InstrumentError RemoveFolder(const Command&, Answers&);
    InstrumentError Catalogue(const Command&, Answers&);
    InstrumentError Exists(const Command&, Answers&);
    InstrumentError GetFile(const Command&, Answers&);
    InstrumentError StoreFile(const Command&, Answers&);
    InstrumentError RemoveFile(const Command&, Answers&);
    InstrumentError Move(const Command&, Answers&);
    InstrumentError GetActive(const Command&, Answers&);
    InstrumentError SetDate(const Command&, Answers&);
    InstrumentError SetTime(const Command&, Answers&);
    InstrumentError Lock(const Command&, Answers&);
    InstrumentError Unlock(const Command&, Answers&);
    InstrumentError IsLocked(const Command&, Answers&);
    InstrumentError FetchScreen(const Command&, Answers&);

    bool IsOwnFolder(std::string_view name) const;
    WirePath FolderOf(const std::string& familyWord) const;

    Storage& storage_;
    Identity identity_;
    std::function<std::string()> screen_;
    ErrorQueue errors_;
    WirePath current_;
    std::string branch_; ///< header of the former command without its last part; for headers that go on from there
    InstrumentError blockError_ = InstrumentError::None;
    bool refuseNext_ = false;
};

} // namespace tarvik
