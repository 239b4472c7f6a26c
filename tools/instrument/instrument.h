// tools/instrument/instrument.h: executes the commands of the simulated receiver.
#pragma once

#include "tools/instrument/answers.h"
#include "tools/instrument/errors.h"
#include "tools/instrument/messageReader.h"
#include "tools/instrument/storage.h"

#include <functional>
#include <string>

namespace tarvik {

/// The parts of the receiver's identification, in Windows-1252.
struct Identity {
    std::string Maker = "TARVIK";
    std::string Model = "TR-200DF";
    std::string Serial = "100042";
    std::string Firmware = "4.30";
};

/// The file families, named by words in commands.
enum class FileFamily { All, Antenna, Kfactor, Memory, Suppress, Correction };

/// The folder of a family; the root for `All`.
WirePath FamilyFolder(FileFamily family);

/// The folder for the receiver's screen shots.
WirePath ScreenShotFolder();

class Instrument {
public:
    /// `screen` returns the display as a PNG file. `storage` must outlive this.
    Instrument(Storage& storage, Identity identity, std::function<std::string()> screen);

    /// Resets for a new client: no errors, current folder is the root.
    void Reset();

    /// Executes a command whose block, if any, has already been stored.
    void Execute(const Command& command, Answers& answers);

    /// A command's block starts, continues, or will never be complete.
    void BeginBlock(const Command& command, std::uint64_t size);
    void TakeBlock(std::string_view bytes);
    void AbandonBlock();

    /// Reports a syntax error.
    void ReportBad();

    /// Refuses the next command that uses files or settings.
    void RefuseNext()
    {
        refuseNext_ = true;
    }

    /// The pending errors.
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
    std::string branch_; ///< header of the previous command without its last part, for relative headers
    InstrumentError blockError_ = InstrumentError::None;
    bool refuseNext_ = false;
};

} // namespace tarvik
