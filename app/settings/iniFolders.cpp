// The remembered folders of the file classes, on the PC and on the instrument.
#include "app/platform/debug.h"
#include "app/settings/ini.h"
#include "app/state/project.h"

#include <QFileInfo>

#include <array>

namespace tarvik {

namespace {

const QString kSection = QStringLiteral("File");
const QString kInstrumentRoot = QStringLiteral("\\Public");

struct ClassFolder {
    const char* Suffix; ///< of the keys
    const char* Name; ///< of the default folder
};

/// By file class, from 1.
constexpr std::array<ClassFolder, 6> kFolders{ { { "Al", "Antenna List" }, { "Kf", "K-Factor Table" },
    { "Ml", "Memory List" }, { "Sl", "Suppress List" }, { "Ss", "Screen Shots" }, { "Cs", "Correction Set" } } };

/// Null for a number that is no file class, reported for `routine`.
const ClassFolder* FolderOf(int fileClass, const char* routine)
{
    if (fileClass < 1 || fileClass > static_cast<int>(kFolders.size())) {
        DebugReport(routine);
        return nullptr;
    }
    return &kFolders[static_cast<size_t>(fileClass - 1)];
}

QString KeyOf(const char* prefix, const ClassFolder& folder)
{
    return QLatin1String(prefix) + QLatin1String(folder.Suffix);
}

} // namespace

QString IniReadModelPcPath(const QString& file, int fileClass)
{
    const ClassFolder* folder = FolderOf(fileClass, "IniReadModelPcPath");
    if (folder == nullptr)
        return {};
    QString path;
    const QString& appPath = Program().AppPath;
    IniReadString(file, kSection, KeyOf("PcPath", *folder), appPath + QLatin1String(folder->Name), path);
    path = path.trimmed();
    return QFileInfo(path).isDir() ? path : appPath;
}

QString IniReadModelInstrPath(const QString& file, int fileClass)
{
    const ClassFolder* folder = FolderOf(fileClass, "IniReadModelInstrPath");
    if (folder == nullptr)
        return {};
    QString path;
    const QString fallback = kInstrumentRoot + u'\\' + QLatin1String(folder->Name);
    IniReadString(file, kSection, KeyOf("InstrPath", *folder), fallback, path);
    path = path.trimmed();
    return path.isEmpty() ? kInstrumentRoot : path;
}

void IniWriteModelPcPath(const QString& file, int fileClass, const QString& path)
{
    if (const ClassFolder* folder = FolderOf(fileClass, "IniWriteModelPcPath"))
        IniWriteString(file, kSection, KeyOf("PcPath", *folder), path);
}

void IniWriteModelInstrPath(const QString& file, int fileClass, const QString& path)
{
    if (const ClassFolder* folder = FolderOf(fileClass, "IniWriteModelInstrPath"))
        IniWriteString(file, kSection, KeyOf("InstrPath", *folder), path);
}

} // namespace tarvik
