#include "tests/tools/instrument/deskInstrument.h"

#include "tools/instrument/exampleFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarvik {

DeskInstrument::DeskInstrument()
    : instrument_(storage_, Identity(), [] { return std::string("(picture)"); })
{
    std::string reason;
    EXPECT_TRUE(storage_.Open(folder_.path().toStdString(), kCapacityBytes, reason)) << reason;
    EXPECT_EQ(MakeReceiverFolders(storage_), InstrumentError::None);
}

std::string DeskInstrument::Say(std::string_view bytes)
{
    for (;;) {
        switch (reader_.Next(bytes)) {
        case ReaderEvent::BlockBegins:
            instrument_.BeginBlock(reader_.Current(), reader_.BlockLength());
            break;
        case ReaderEvent::BlockBytes:
            instrument_.TakeBlock(reader_.BlockPiece());
            break;
        case ReaderEvent::Command:
            instrument_.Execute(reader_.Current(), answers_);
            break;
        case ReaderEvent::Bad:
            instrument_.ReportBad();
            break;
        case ReaderEvent::NeedsBytes:
            std::string said;
            while (!answers_.IsEmpty()) {
                const std::string_view piece = answers_.Peek(1000);
                said += piece;
                answers_.Sent(piece.size());
            }
            return said;
        }
    }
}

std::string DeskInstrument::Error()
{
    const std::string answer = Say("SYST:ERR?\n");
    return answer.substr(0, answer.find(','));
}

std::string DeskInstrument::Path(const std::string& name) const
{
    return storage_.Root() + '/' + name;
}

void DeskInstrument::Put(const std::string& name, const std::string& content) const
{
    std::ofstream(Path(name), std::ios::binary) << content;
    EXPECT_EQ(Content(name), content);
}

std::string DeskInstrument::Content(const std::string& name) const
{
    std::ifstream file(Path(name), std::ios::binary);
    return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "(none)";
}

} // namespace tarvik
