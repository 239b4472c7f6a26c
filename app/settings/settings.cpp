#include "app/settings/settings.h"

#include "app/platform/processState.h"
#include "app/settings/ini.h"
#include "app/state/project.h"
#include "app/values/strings.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

const QString kFileSection = QStringLiteral("File");
const QString kWindowSection = QStringLiteral("Window");

const QString kStateKey = QStringLiteral("WinState");
const QString kLeftKey = QStringLiteral("WinLeft");
const QString kTopKey = QStringLiteral("WinTop");
const QString kWidthKey = QStringLiteral("WinWidth");
const QString kHeightKey = QStringLiteral("WinHeight");

std::vector<SettingsGroup>& Groups()
{
    static ProcessState<std::vector<SettingsGroup>> groups;
    return groups.Get();
}

/// Without a frame there is nothing to place, and nothing to ask for its place.
bool HasFrame()
{
    return static_cast<bool>(TheFramePlacement().ScreenSizeTwips);
}

/// Beyond this no screen reaches, and a frame could not turn the length into pixels.
constexpr double kLargestTwips = 1'000'000;

double ReadLength(const QString& file, const QString& key, double fallback)
{
    const float twips = IniReadSingle(file, ProductTitle(), key, static_cast<float>(fallback));
    return std::clamp(static_cast<double>(twips), -kLargestTwips, kLargestTwips);
}

void ReadFrame(const QString& file)
{
    ProgramState& program = Program();
    program.MainWindowState = IniReadInt(file, ProductTitle(), kStateKey, WinStateMaximised);
    if (!HasFrame())
        return;
    const FramePlacementHooks& frame = TheFramePlacement();
    frame.SetState(program.MainWindowState);
    const QSizeF screen = frame.ScreenSizeTwips();
    frame.SetWidthTwips(ReadLength(file, kWidthKey, screen.width()));
    frame.SetHeightTwips(ReadLength(file, kHeightKey, screen.height()));
    const QSizeF size = frame.SizeTwips();
    frame.SetLeftTwips(ReadLength(file, kLeftKey, screen.width() - size.width()));
    frame.SetTopTwips(ReadLength(file, kTopKey, screen.height() - size.height()));
}

void WriteFrame(const QString& file)
{
    if (!HasFrame())
        return;
    const FramePlacementHooks& frame = TheFramePlacement();
    const QRectF normal = frame.NormalRectTwips();
    const auto write = [&file](const QString& key, double value) {
        IniWriteSingle(file, ProductTitle(), key, static_cast<float>(value));
    };
    IniWriteInt(file, ProductTitle(), kStateKey, static_cast<qint16>(frame.State()));
    write(kLeftKey, normal.left());
    write(kTopKey, normal.top());
    write(kWidthKey, normal.width());
    write(kHeightKey, normal.height());
}

void ReadLastFile(const QString& file)
{
    QString folder;
    QString name;
    IniReadString(file, kFileSection, QStringLiteral("Path"), Program().AppPath, folder);
    IniReadString(file, kFileSection, QStringLiteral("Name"), {}, name);
    if (folder.trimmed().isEmpty())
        folder = Program().AppPath;
    SetLastFile(PathWithSlash(folder) + name);
}

void WriteLastFile(const QString& file)
{
    const LastFileName& last = Program().LastFile;
    IniWriteString(file, kFileSection, QStringLiteral("Path"), last.Folder);
    IniWriteString(file, kFileSection, QStringLiteral("Name"), QFileInfo(last.Path).fileName());
}

void ReadWindow(const QString& file)
{
    ProgramState& program = Program();
    program.ToolbarOn = IniReadBool(file, kWindowSection, QStringLiteral("Toolbar"), true);
    program.StatusBarOn = IniReadBool(file, kWindowSection, QStringLiteral("Statusbar"), true);
    program.AutoTile = IniReadBool(file, kWindowSection, QStringLiteral("AutoTile"), false);
}

void WriteWindow(const QString& file)
{
    const ProgramState& program = Program();
    IniWriteBool(file, kWindowSection, QStringLiteral("Toolbar"), program.ToolbarOn);
    IniWriteBool(file, kWindowSection, QStringLiteral("Statusbar"), program.StatusBarOn);
    IniWriteBool(file, kWindowSection, QStringLiteral("AutoTile"), program.AutoTile);
}

} // namespace

FramePlacementHooks& TheFramePlacement()
{
    static ProcessState<FramePlacementHooks> hooks;
    return hooks.Get();
}

void SettingsSetGroups(std::vector<SettingsGroup> groups)
{
    Groups() = std::move(groups);
}

QString IniFileName()
{
    return Program().AppPath + ProductTitle() + QStringLiteral(".ini");
}

void IniRead()
{
    const QString file = IniFileName();
    const IniSession session(file);
    ReadFrame(file);
    ReadLastFile(file);
    for (const SettingsGroup& group : Groups())
        group.Read(file);
    ReadWindow(file);
}

void IniWrite()
{
    const QString file = IniFileName();
    IniSession session(file);
    WriteFrame(file);
    WriteLastFile(file);
    for (const SettingsGroup& group : Groups())
        group.Write(file);
    WriteWindow(file);
    static_cast<void>(session.Commit()); // a file that can't be replaced keeps the settings of the last run
}

} // namespace tarvik
