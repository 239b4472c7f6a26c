// app/platform/seams.h: what the program asks of the outside world, so that a test can answer in its place.
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>

namespace tarvik {

/// The question of the folder browser.
struct FolderQuestion {
    QString Title;
    QString Start; ///< folder selected at open
};

/// The question of an open dialog. `Filters` are "description|pattern" pairs, the first one selected.
struct OpenFileQuestion {
    QString Title;
    QString InitialFolder;
    QStringList Filters;
};

/// The question of an open dialog that takes several files of one folder.
struct OpenFilesQuestion {
    QString Title;
    QString InitialFolder;
    QStringList Filters; ///< as above
    QString DefaultExtension; ///< of a name that is typed without one; no point
};

/// The question of a save dialog, which asks before it lets an existing file be replaced. A name without an extension
/// gets that of the selected filter, the proposed one as well as one that is typed.
struct SaveFileQuestion {
    QString Title;
    QString InitialFolder;
    QString FileName; ///< proposed, without its extension
    QStringList Filters; ///< as above
    int FilterIndex = 1; ///< selected, from 1
    int HelpNumber = 0;
};

/// Every member has a default that works without a display: no dialog is answered, time is the system's.
struct Seams {
    std::function<QDateTime()> Now;

    /// Runs the events that wait and returns.
    std::function<void()> PumpEvents;

    /// Runs events, sleeping between them, until `done` answers true.
    std::function<void(const std::function<bool()>& done)> PumpUntil;

    /// Calls `tick` once, `milliseconds` from now, from the message loop.
    std::function<void(int milliseconds, std::function<void()> tick)> StartTimer;

    /// Stops the thread, without events.
    std::function<void(int milliseconds)> Sleep;

    /// Full path, or empty when the user cancelled.
    std::function<QString(const FolderQuestion&)> BrowseFolder;
    std::function<QString(const OpenFileQuestion&)> OpenFile;
    std::function<QStringList(const OpenFilesQuestion&)> OpenFiles; ///< full paths
    std::function<QString(const SaveFileQuestion&)> SaveFile;

    /// A plain system box with the exclamation icon, for what is said before texts are up.
    std::function<void(const QString& title, const QString& text)> SystemBox;

    /// The region whose date, number and measurement habits the program follows.
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
