// app/platform/seams.h: the program's calls to the outside world, which tests replace.
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>

namespace tarvik {

/// Request to the folder browser.
struct FolderQuestion {
    QString Title;
    QString Start; ///< folder selected at open
};

/// Request to an open dialog. `Filters` are "description|pattern" pairs, the first one selected.
struct OpenFileQuestion {
    QString Title;
    QString InitialFolder;
    QStringList Filters;
};

/// Request to an open dialog for several files of one folder.
struct OpenFilesQuestion {
    QString Title;
    QString InitialFolder;
    QStringList Filters; ///< as above
    QString DefaultExtension; ///< for a name typed without one; no point
};

/// Request to a save dialog, which confirms the replacement of an existing file. A name without an extension, proposed
/// or typed, gets that of the selected filter.
struct SaveFileQuestion {
    QString Title;
    QString InitialFolder;
    QString FileName; ///< proposed, without its extension
    QStringList Filters; ///< as above
    int FilterIndex = 1; ///< selected, from 1
    int HelpNumber = 0;
};

/// Every member has a default that works without a display: dialogs are cancelled, time is the system's.
struct Seams {
    std::function<QDateTime()> Now;

    /// Processes pending events.
    std::function<void()> PumpEvents;

    /// Processes events, sleeping between them, until `done` returns true.
    std::function<void(const std::function<bool()>& done)> PumpUntil;

    /// Calls `tick` once, `milliseconds` from now, from the message loop.
    std::function<void(int milliseconds, std::function<void()> tick)> StartTimer;

    /// Blocks the thread without processing events.
    std::function<void(int milliseconds)> Sleep;

    /// Full path, or empty when the user cancelled.
    std::function<QString(const FolderQuestion&)> BrowseFolder;
    std::function<QString(const OpenFileQuestion&)> OpenFile;
    std::function<QStringList(const OpenFilesQuestion&)> OpenFiles; ///< full paths
    std::function<QString(const SaveFileQuestion&)> SaveFile;

    /// A plain system box with the exclamation icon, for messages before texts are available.
    std::function<void(const QString& title, const QString& text)> SystemBox;

    /// Prints lines, separated by carriage returns or line feeds, to standard error.
    std::function<void(const QString& text)> PrintError;

    /// The region whose formats for dates, numbers and measures apply.
    std::function<QLocale()> Region;

    /// Full path of the running program.
    std::function<QString()> ExecutablePath;

    /// Name of the system's default printer; empty without one.
    std::function<QString()> DefaultPrinter;

    std::function<bool(const QString& path)> MoveToTrash;
    std::function<bool(const QUrl&)> OpenUrl;

    /// True while one of the arrow keys Up and Down is held.
    std::function<bool()> ArrowKeyIsHeld;
};

Seams& TheSeams();

} // namespace tarvik
