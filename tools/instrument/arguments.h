// tools/instrument/arguments.h: the command line of the simulated receiver.
#pragma once

#include "tools/instrument/instrument.h"
#include "tools/instrument/linkOptions.h"

#include <QString>
#include <QStringList>

namespace tarvik {

struct InstrumentArguments {
    bool Help = false;
    bool Version = false;
    QString Root; ///< folder of the files; empty means the user's default
    QString Address = QStringLiteral("127.0.0.1");
    int FirstPort = 5555; ///< 0 means any
    int LastPort = 5555;
    std::int64_t CapacityBytes = std::int64_t{ 1024 } * 1024 * 1024;
    Identity Names;
    LinkOptions Link;
};

/// Parses the arguments after the program's name, `--name value` or `--name=value`. False, with `error`, for wrong
/// usage.
[[nodiscard]] bool ReadArguments(const QStringList& arguments, InstrumentArguments& result, QString& error);

/// The text of --help.
QString InstrumentHelpText();

} // namespace tarvik
