// tools/instrument/arguments.h: the command line.
#pragma once

#include "tools/instrument/instrument.h"
#include "tools/instrument/linkOptions.h"

#include <QString>
#include <QStringList>

namespace tarvik {

struct InstrumentArguments {
    bool Help = false;
    bool Version = false;
    QString Root; ///< folder of the files; empty is the user's own
    QString Address = QStringLiteral("127.0.0.1");
    int FirstPort = 5555; ///< 0 is any
    int LastPort = 5555;
    std::int64_t CapacityBytes = std::int64_t{ 1024 } * 1024 * 1024;
    Identity Names;
    LinkOptions Link;
};

/// Reads the arguments behind the program's name, `--name value` or `--name=value`. False, with `error`, for wrong
/// usage.
[[nodiscard]] bool ReadArguments(const QStringList& arguments, InstrumentArguments& result, QString& error);

/// The text of --help.
QString InstrumentHelpText();

} // namespace tarvik
