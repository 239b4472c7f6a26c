#include "tools/instrument/instrument.h"

#include "tools/instrument/commandWords.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarvik {

namespace {

using Form = CommandParameter::Form;

struct FamilyRow {
    const char* Word;
    FileFamily Of;
    const char* Folder;
    bool HoldsOneFile;
};

constexpr std::array kFamilies{
    FamilyRow{ "ALL", FileFamily::All, nullptr, false },
    FamilyRow{ "ANT", FileFamily::Antenna, "Antenna List", true },
    FamilyRow{ "KFAC", FileFamily::Kfactor, "K-Factor Table", false },
    FamilyRow{ "MEM", FileFamily::Memory, "Memory List", true },
    FamilyRow{ "SUPP", FileFamily::Suppress, "Suppress List", true },
    FamilyRow{ "CORR", FileFamily::Correction, "Correction Set", false },
};

constexpr const char* kPublic = "Public";
constexpr const char* kScreenShots = "Screen Shots";

const FamilyRow* FindFamily(const std::string& word)
{
    const auto found = std::find_if(
        kFamilies.begin(), kFamilies.end(), [&word](const FamilyRow& family) { return IsSameWord(family.Word, word); });
    return found == kFamilies.end() ? nullptr : &*found;
}

std::string Quoted(std::string_view text)
{
    std::string quoted = "\"";
    for (const char byte : text)
        quoted.append(byte == '"' ? 2 : 1, byte);
    return quoted + '"';
}

std::string CatalogueRow(const StorageEntry& entry)
{
    const std::tm& stamp = entry.Stamp;
    std::string row =
        ',' + Quoted(entry.Name) + (entry.IsFolder ? ",DIR," : ",FILE,") + std::to_string(entry.SizeBytes);
    for (const int number :
        { stamp.tm_year + 1900, stamp.tm_mon + 1, stamp.tm_mday, stamp.tm_hour, stamp.tm_min, stamp.tm_sec })
        row += ',' + std::to_string(number);
    return row;
}

} // namespace

WirePath FamilyFolder(FileFamily family)
{
    for (const FamilyRow& row : kFamilies) {
        if (row.Of == family && row.Folder != nullptr)
            return { kPublic, row.Folder };
    }
    return {};
}

WirePath ScreenShotFolder()
{
    return { kPublic, kScreenShots };
}

/// A row of the command table. Parameters are described by letters: w word, f family word, n number, t text, b block.
struct Instrument::Row {
    const char* Header; ///< the capitals are the short form
    bool IsQuery;
    const char* Parameters;
    Run Handler;
    bool AnswersBlock = false; ///< a refusal still sends an empty block
    bool IsCommon = false; ///< neither reads nor changes files or settings
};

const Instrument::Row* Instrument::FindRow(const std::string& header, bool isQuery)
{
    static constexpr std::array kRows{
        Row{ "*IDN", true, "", &Instrument::Identify, false, true },
        Row{ "*CLS", false, "", &Instrument::Clear, false, true },
        Row{ "*OPC", true, "", &Instrument::Complete, false, true },
        Row{ "SYSTem:ERRor", true, "", &Instrument::OldestError, false, true },
        Row{ "SYSTem:ERRor:NEXT", true, "", &Instrument::OldestError, false, true },
        Row{ "MMEMory:CDIRectory", true, "", &Instrument::GetFolder },
        Row{ "MMEMory:CDIRectory", false, "t", &Instrument::SetFolder },
        Row{ "MMEMory:MDIRectory", false, "t", &Instrument::MakeFolder },
        Row{ "MMEMory:RDIRectory", false, "t", &Instrument::RemoveFolder },
        Row{ "MMEMory:CATalog", true, "f", &Instrument::Catalogue },
        Row{ "MMEMory:EXISts", true, "ft", &Instrument::Exists },
        Row{ "MMEMory:DATA", true, "ft", &Instrument::GetFile, true },
        Row{ "MMEMory:DATA", false, "ftb", &Instrument::StoreFile },
        Row{ "MMEMory:DELete", false, "ft", &Instrument::RemoveFile },
        Row{ "MMEMory:MOVE", false, "tt", &Instrument::Move },
        Row{ "MMEMory:ACTive:DATA", true, "", &Instrument::GetActive, true },
        Row{ "MMEMory:ACTive:DATA", false, "b", &Instrument::StoreFile },
        Row{ "MMEMory:FILE:DATE", false, "tnnn", &Instrument::SetDate },
        Row{ "MMEMory:FILE:TIME", false, "tnnn", &Instrument::SetTime },
        Row{ "SYSTem:SET:LOCK", false, "t", &Instrument::Lock },
        Row{ "SYSTem:SET:UNLOCK", false, "t", &Instrument::Unlock },
        Row{ "SYSTem:SET:LOCK", true, "t", &Instrument::IsLocked },
        Row{ "DISPlay:WINDow:FETCh", true, "", &Instrument::FetchScreen, true },
    };
    const auto found = std::find_if(kRows.begin(), kRows.end(),
        [&](const Row& row) { return row.IsQuery == isQuery && HeaderMatches(row.Header, header); });
    return found == kRows.end() ? nullptr : &*found;
}

Instrument::Instrument(Storage& storage, Identity identity, std::function<std::string()> screen)
    : storage_(storage)
    , identity_(std::move(identity))
    , screen_(std::move(screen))
{
}

void Instrument::Reset()
{
    AbandonBlock();
    errors_.Clear();
    current_.clear();
    branch_.clear();
}

/// Headers are resolved from the root, then relative to the previous command of the same message.
const Instrument::Row* Instrument::RowOf(const Command& command)
{
    if (command.StartsMessage || command.StartsAtRoot)
        branch_.clear();
    std::string header = command.Header;
    const Row* row = FindRow(header, command.IsQuery);
    if (row == nullptr && !branch_.empty()) {
        header = branch_ + header;
        row = FindRow(header, command.IsQuery);
    }
    if (row != nullptr && header.front() != '*')
        branch_ = header.substr(0, header.rfind(':') + 1);
    return row;
}

InstrumentError Instrument::Check(const Row* row, const Command& command)
{
    if (row == nullptr)
        return InstrumentError::Command;
    if (!row->IsCommon && std::exchange(refuseNext_, false))
        return InstrumentError::MassStorage;
    const std::string_view wanted = row->Parameters;
    const bool fits = std::equal(wanted.begin(), wanted.end(), command.Parameters.begin(), command.Parameters.end(),
        [](char letter, const CommandParameter& given) {
            switch (letter) {
            case 't':
                return given.Kind == Form::Text;
            case 'b':
                return given.Kind == Form::Block;
            case 'f':
                return given.Kind == Form::Word && FindFamily(given.Value) != nullptr;
            default:
                return given.Kind == Form::Word && ReadNumber(given.Value).has_value();
            }
        });
    return fits ? InstrumentError::None : InstrumentError::Parameter;
}

void Instrument::Execute(const Command& command, Answers& answers)
{
    const bool hasBlock = !command.Parameters.empty() && command.Parameters.back().Kind == Form::Block;
    const Row* row = RowOf(command);
    InstrumentError error = hasBlock ? std::exchange(blockError_, InstrumentError::None) : Check(row, command);
    if (error == InstrumentError::None)
        error = (this->*row->Handler)(command, answers);
    if (error == InstrumentError::None)
        return;
    if (hasBlock)
        storage_.AbandonStore();
    errors_.Put(error);
    if (row != nullptr && row->AnswersBlock)
        answers.Block({});
}

void Instrument::BeginBlock(const Command& command, std::uint64_t size)
{
    const std::string branch = branch_; // the whole command is executed later
    blockError_ = Check(RowOf(command), command);
    branch_ = branch;
    if (blockError_ == InstrumentError::None)
        blockError_ = PrepareStore(command, size);
}

InstrumentError Instrument::PrepareStore(const Command& command, std::uint64_t size)
{
    if (command.Parameters.size() == 1)
        return storage_.BeginStoreActive(size);
    const std::string& word = command.Parameters[0].Value;
    const StoreReplaces place = FindFamily(word)->HoldsOneFile ? StoreReplaces::WholeFolder : StoreReplaces::SameName;
    return storage_.BeginStore(FolderOf(word), command.Parameters[1].Value, place, size);
}

void Instrument::TakeBlock(std::string_view bytes)
{
    if (blockError_ == InstrumentError::None)
        blockError_ = storage_.Store(bytes);
}

void Instrument::AbandonBlock()
{
    blockError_ = InstrumentError::None;
    storage_.AbandonStore();
}

void Instrument::ReportBad()
{
    AbandonBlock();
    errors_.Put(InstrumentError::Command);
}

InstrumentError Instrument::Identify(const Command& /*command*/, Answers& answers)
{
    answers.Line(identity_.Maker + ',' + identity_.Model + ',' + identity_.Serial + ',' + identity_.Firmware);
    return InstrumentError::None;
}

InstrumentError Instrument::Clear(const Command& /*command*/, Answers& /*answers*/)
{
    errors_.Clear();
    return InstrumentError::None;
}

InstrumentError Instrument::Complete(const Command& /*command*/, Answers& answers)
{
    answers.Line("1");
    return InstrumentError::None;
}

InstrumentError Instrument::OldestError(const Command& /*command*/, Answers& answers)
{
    answers.Line(ErrorAnswer(errors_.Take()));
    return InstrumentError::None;
}

InstrumentError Instrument::GetFolder(const Command& /*command*/, Answers& answers)
{
    answers.Line(Quoted(PathText(current_)));
    return InstrumentError::None;
}

InstrumentError Instrument::SetFolder(const Command& command, Answers& /*answers*/)
{
    const auto path = FollowPath(current_, command.Parameters[0].Value);
    if (!path)
        return InstrumentError::FileName;
    if (!storage_.HasFolder(*path))
        return InstrumentError::NotFound;
    current_ = *path;
    return InstrumentError::None;
}

InstrumentError Instrument::MakeFolder(const Command& command, Answers& /*answers*/)
{
    return storage_.MakeFolder(current_, command.Parameters[0].Value);
}

InstrumentError Instrument::RemoveFolder(const Command& command, Answers& /*answers*/)
{
    const std::string& name = command.Parameters[0].Value;
    return IsOwnFolder(name) ? InstrumentError::Protected : storage_.RemoveFolder(current_, name);
}

InstrumentError Instrument::Catalogue(const Command& command, Answers& answers)
{
    const std::string& word = command.Parameters[0].Value;
    std::vector<StorageEntry> entries;
    if (const auto error = storage_.List(FolderOf(word), entries); error != InstrumentError::None)
        return error;
    const bool withFolders = FindFamily(word)->Of == FileFamily::All;
    const StorageUsage usage = storage_.Usage();
    std::string answer = std::to_string(usage.UsedBytes) + ',' + std::to_string(usage.FreeBytes);
    for (const StorageEntry& entry : entries) {
        if (withFolders || !entry.IsFolder)
            answer += CatalogueRow(entry);
    }
    answers.Line(answer);
    return InstrumentError::None;
}

InstrumentError Instrument::Exists(const Command& command, Answers& answers)
{
    StorageEntry entry;
    const auto error = storage_.Find(FolderOf(command.Parameters[0].Value), command.Parameters[1].Value, entry);
    if (error != InstrumentError::None && error != InstrumentError::NotFound)
        return error;
    const char* kind = entry.IsFolder ? "1,DIR" : "1,FILE";
    answers.Line(error == InstrumentError::None ? kind : "0");
    return InstrumentError::None;
}

InstrumentError Instrument::GetFile(const Command& command, Answers& answers)
{
    Descriptor file;
    std::uint64_t size = 0;
    const auto error =
        storage_.OpenFile(FolderOf(command.Parameters[0].Value), command.Parameters[1].Value, file, size);
    if (error == InstrumentError::None)
        answers.FileBlock(std::move(file), size);
    return error;
}

InstrumentError Instrument::StoreFile(const Command& /*command*/, Answers& /*answers*/)
{
    return storage_.EndStore();
}

InstrumentError Instrument::RemoveFile(const Command& command, Answers& /*answers*/)
{
    return storage_.RemoveFile(FolderOf(command.Parameters[0].Value), command.Parameters[1].Value);
}

InstrumentError Instrument::Move(const Command& command, Answers& /*answers*/)
{
    const std::string& name = command.Parameters[0].Value;
    return IsOwnFolder(name) ? InstrumentError::Protected
                             : storage_.Rename(current_, name, command.Parameters[1].Value);
}

InstrumentError Instrument::GetActive(const Command& /*command*/, Answers& answers)
{
    Descriptor file;
    std::uint64_t size = 0;
    const auto error = storage_.OpenActive(file, size);
    if (error == InstrumentError::None)
        answers.FileBlock(std::move(file), size);
    return error;
}

InstrumentError Instrument::SetDate(const Command& command, Answers& /*answers*/)
{
    const auto date = ReadDate(command.Parameters[1].Value, command.Parameters[2].Value, command.Parameters[3].Value);
    return date ? storage_.SetDate(current_, command.Parameters[0].Value, *date) : InstrumentError::Parameter;
}

InstrumentError Instrument::SetTime(const Command& command, Answers& /*answers*/)
{
    const auto time = ReadTime(command.Parameters[1].Value, command.Parameters[2].Value, command.Parameters[3].Value);
    return time ? storage_.SetTime(current_, command.Parameters[0].Value, *time) : InstrumentError::Parameter;
}

InstrumentError Instrument::Lock(const Command& command, Answers& /*answers*/)
{
    return storage_.SetLocked(current_, command.Parameters[0].Value, true);
}

InstrumentError Instrument::Unlock(const Command& command, Answers& /*answers*/)
{
    return storage_.SetLocked(current_, command.Parameters[0].Value, false);
}

InstrumentError Instrument::IsLocked(const Command& command, Answers& answers)
{
    bool locked = false;
    const auto error = storage_.GetLocked(current_, command.Parameters[0].Value, locked);
    if (error == InstrumentError::None)
        answers.Line(locked ? "1" : "0");
    return error;
}

InstrumentError Instrument::FetchScreen(const Command& /*command*/, Answers& answers)
{
    std::string picture = screen_();
    if (picture.empty())
        return InstrumentError::MassStorage;
    answers.Block(std::move(picture));
    return InstrumentError::None;
}

/// The receiver's own working folders can't be renamed or removed.
bool Instrument::IsOwnFolder(std::string_view name) const
{
    WirePath path = current_;
    path.emplace_back(name);
    return path == WirePath{ kPublic } || path == ScreenShotFolder()
        || std::any_of(kFamilies.begin(), kFamilies.end(),
            [&path](const FamilyRow& family) { return family.Folder != nullptr && path == FamilyFolder(family.Of); });
}

WirePath Instrument::FolderOf(const std::string& familyWord) const
{
    const FileFamily family = FindFamily(familyWord)->Of;
    return family == FileFamily::All ? current_ : FamilyFolder(family);
}

} // namespace tarvik
