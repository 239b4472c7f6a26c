#include "app/settings/settings.h"

#include "app/platform/paths.h"
#include "app/platform/processState.h"
#include "app/settings/ini.h"
#include "app/state/frame.h"
#include "app/state/project.h"
#include "app/values/strings.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

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

QString FileName()
{
    return ProductTitle() + QStringLiteral(".ini");
}

QString SiteFileName()
{
    return Program().AppPath + FileName();
}

QString UserFileName()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QDir::toNativeSeparators(folder + QStringLiteral("/tarvik/") + FileName());
}

QString FolderOf(const QString& file)
{
    return QFileInfo(file).path();
}

/// True if a new file can be created in the folder of `file`, or of the file that it links to.
bool CanBeCreated(const QString& file)
{
    return QFileInfo(FolderOf(ResolveLinks(file))).isWritable();
}

/// Larger than any screen, and safe to convert to pixels.
constexpr double kMaxTwips = 1'000'000;

double ReadLength(const QString& file, const QString& key, double fallback)
{
    const float twips = IniReadSingle(file, ProductTitle(), key, static_cast<float>(fallback));
    return std::clamp(static_cast<double>(twips), -kMaxTwips, kMaxTwips);
}

/// A number that no state has counts as normal.
WinState WinStateOf(qint16 stored)
{
    const auto state = static_cast<WinState>(stored);
    return state == WinState::Minimised || state == WinState::Maximised ? state : WinState::Normal;
}

void ReadFrame(const QString& file)
{
    ProgramState& program = Program();
    program.MainWindowState =
        WinStateOf(IniReadInt(file, ProductTitle(), kStateKey, static_cast<qint16>(WinState::Maximised)));
    const QSizeF screen = TheFrame()->ScreenTwips();
    const double width = ReadLength(file, kWidthKey, screen.width());
    const QSizeF size = TheFrame()->ResizeTwips({ width, ReadLength(file, kHeightKey, screen.height()) });
    const double left = ReadLength(file, kLeftKey, screen.width() - size.width());
    TheFrame()->MoveTwips({ left, ReadLength(file, kTopKey, screen.height() - size.height()) });
}

/// Without a frame its keys are unchanged.
void WriteFrame(const QString& file)
{
    const std::optional<FramePlacement> placement = TheFrame()->Placement();
    if (!placement)
        return;
    const QRectF& normal = placement->NormalTwips;
    const auto write = [&file](const QString& key, double value) {
        IniWriteSingle(file, ProductTitle(), key, static_cast<float>(value));
    };
    IniWriteInt(file, ProductTitle(), kStateKey, static_cast<qint16>(placement->State));
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

void SettingsSetGroups(std::vector<SettingsGroup> groups)
{
    Groups() = std::move(groups);
}

QString IniFileName()
{
    const QString site = SiteFileName();
    const bool isDevice = QFileInfo::exists(site) && !QFileInfo(site).isFile(); // linked on purpose: nothing is kept
    return isDevice || CanBeCreated(site) ? site : UserFileName();
}

bool IniHasPlace()
{
    const QString file = IniFileName();
    return file == SiteFileName() || (QDir().mkpath(FolderOf(file)) && CanBeCreated(file));
}

void IniRead()
{
    const QString own = IniFileName();
    const QString file = QFileInfo::exists(own) ? own : SiteFileName();
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
    QDir().mkpath(FolderOf(file)); // of the user; if it can't be made, the commit fails
    IniSession session(file);
    WriteFrame(file);
    WriteLastFile(file);
    for (const SettingsGroup& group : Groups())
        group.Write(file);
    WriteWindow(file);
    static_cast<void>(session.Commit()); // a file that can't be replaced keeps the settings of the last run
}

} // namespace tarvik
