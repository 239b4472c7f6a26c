#include "link/files/fileList.h"

#include "app/platform/processState.h"
#include "app/platform/seams.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/region.h"
#include "app/values/strings.h"
#include "link/channel/channel.h"

#include <algorithm>
#include <numeric>

namespace tarvik {

namespace {

class AbsentFileListView final : public FileListView {
public:
    void BeginChange() override { }
    void EndChange() override { }
    void GiveFocus() override { }
    void StartLabelEdit(int) override { }
};

QString TwoDigits(int number)
{
    const auto digit = [](int value) { return QChar(u'0' + value); };
    return QString(digit(number / 10 % 10)) + digit(number % 10);
}

/// The two-digit number at `at`; -1 if there are other characters.
int NumberAt(const QString& text, qsizetype at)
{
    const QChar tens = text.at(at);
    const QChar ones = text.at(at + 1);
    const bool isNumber = tens >= u'0' && tens <= u'9' && ones >= u'0' && ones <= u'9';
    return isNumber ? (tens.unicode() - u'0') * 10 + ones.unicode() - u'0' : -1;
}

struct ThreeParts {
    int First = -1;
    int Second = -1;
    int Third = -1;
};

ThreeParts PartsOf(const QString& text)
{
    constexpr qsizetype kSize = 8;
    if (text.size() != kSize)
        return {};
    return { NumberAt(text, 0), NumberAt(text, 3), NumberAt(text, 6) };
}

int YearOf(int yearInCentury)
{
    constexpr int kCentury = 100;
    constexpr int kYearsAhead = 19;
    const int last = TheSeams().Now().date().year() + kYearsAhead;
    return last - ((last - yearInCentury) % kCentury + kCentury) % kCentury;
}

QString IconOf(const QString& name, FileMarkers markers)
{
    const bool isMarked = markers.Restricted || markers.Preset || markers.Locked;
    if (!isMarked || u'.' + FileExtension(name) != LngStr(TextId::DataSetExtension))
        return QStringLiteral("File");
    if (markers.Restricted)
        return QStringLiteral("RestrictedFile");
    return markers.Preset ? QStringLiteral("PresetFile") : QStringLiteral("LockedFile");
}

/// Date and time from the texts of a row, without a time zone; invalid if they can't be read.
QDateTime DateTimeOf(const FileListRow& row)
{
    const ThreeParts date = PartsOf(row.Tag.isEmpty() ? row.SubItems[0] : row.Tag);
    const ThreeParts time = PartsOf(row.SubItems[1]);
    const QDate day(date.Third < 0 ? -1 : YearOf(date.Third), date.Second, date.First);
    const QTime clock(time.First, time.Second, time.Third);
    if (!day.isValid() || !clock.isValid())
        return {};
    return { day, clock, Qt::UTC };
}

/// Sort key of a row: for a date year, month, day and time.
QString SortKeyOf(const FileListRow& row, int column)
{
    switch (column) {
    case kFileNameColumn:
        return row.Text;
    case kFileDateColumn: {
        const QDateTime moment = DateTimeOf(row);
        const QDate date = moment.date();
        return moment.isValid()
            ? QString::number(date.year()) + TwoDigits(date.month()) + TwoDigits(date.day()) + row.SubItems[1]
            : QString();
    }
    case kFileTimeColumn:
        return row.SubItems[1];
    default:
        return row.SubItems[2];
    }
}

/// Reorders the rows by `places`; the current row moves along.
void Rearrange(FileList& list, const std::vector<size_t>& places)
{
    std::vector<FileListRow> rows;
    rows.reserve(places.size());
    int current = -1;
    for (const size_t place : places) {
        if (static_cast<int>(place) == list.CurrentRow)
            current = static_cast<int>(rows.size());
        rows.push_back(std::move(list.Rows[place]));
    }
    list.Rows = std::move(rows);
    list.CurrentRow = current;
}

/// Shows the dates in the region's short form and keeps the listed ones in `Tag`.
void ShowRegionDates(FileList& list)
{
    for (FileListRow& row : list.Rows) {
        const QDateTime date = DateTimeOf(row);
        if (!date.isValid())
            continue;
        if (row.Tag.isEmpty())
            row.Tag = row.SubItems[0];
        row.SubItems[0] = IniDateText(date);
    }
}

} // namespace

int CompareFileNames(const QString& first, const QString& second)
{
    const int order = first.compare(second, Qt::CaseInsensitive);
    return order != 0 ? order : first.compare(second);
}

QString FileBaseName(const QString& name)
{
    const qsizetype point = name.lastIndexOf(u'.');
    return point < 0 ? name : name.first(point);
}

QString FileExtension(const QString& name)
{
    const qsizetype point = name.lastIndexOf(u'.');
    return point < 0 ? QString() : name.sliced(point + 1);
}

FileListView& NoFileListView()
{
    static AbsentFileListView view;
    return view;
}

QString& CurrentPcFolder()
{
    static ProcessState<QString> folder;
    return folder.Get();
}

QString PcFilePath(const QString& name)
{
    return CurrentPcFolder().isEmpty() ? QString() : PathWithSlash(CurrentPcFolder()) + name;
}

void TransferAddRow(
    FileList& list, const QString& name, ChannelRowType type, const QDateTime& changed, FileMarkers markers)
{
    FileListRow row;
    row.Text = name;
    if (type == ChannelRowType::Folder) {
        row.Key = u'F' + name;
        row.Icon = QStringLiteral("ClosedFolder");
        row.SubItems[2] = u'+' + name;
    } else {
        row.Key = name;
        row.Icon = IconOf(name, markers);
        row.SubItems[2] = u'-' + name;
    }
    if (type != ChannelRowType::Folder && changed.isValid()) {
        constexpr int kCentury = 100;
        const QDate date = changed.date();
        const QTime time = changed.time();
        row.SubItems[0] =
            TwoDigits(date.day()) + u'/' + TwoDigits(date.month()) + u'/' + TwoDigits(date.year() % kCentury);
        row.SubItems[1] = TwoDigits(time.hour()) + u':' + TwoDigits(time.minute()) + u':' + TwoDigits(time.second());
    }
    list.Rows.push_back(std::move(row));
}

bool TransferIsFolderRow(const FileListRow& row)
{
    return row.Key == u'F' + row.Text;
}

void TransferKeepSorted(FileList& list)
{
    if (!list.Sorted)
        return;
    std::vector<QString> keys;
    keys.reserve(list.Rows.size());
    for (const FileListRow& row : list.Rows)
        keys.push_back(SortKeyOf(row, list.SortKey));

    std::vector<size_t> places(list.Rows.size());
    std::iota(places.begin(), places.end(), size_t{ 0 });
    const bool isAscending = list.SortOrder == FileListOrder::Ascending;
    std::stable_sort(places.begin(), places.end(), [&](size_t first, size_t second) {
        const int order = CompareFileNames(keys[first], keys[second]);
        if (order != 0)
            return isAscending ? order < 0 : order > 0;
        return CompareFileNames(list.Rows[first].SubItems[2], list.Rows[second].SubItems[2]) < 0;
    });
    Rearrange(list, places);
}

void TransferSortBy(FileList& list, int column)
{
    list.SortKey = column;
    list.SortOrder = list.SortOrder == FileListOrder::Ascending ? FileListOrder::Descending : FileListOrder::Ascending;
    list.Sorted = true;
    TransferKeepSorted(list);
    if (column == kFileDateColumn)
        ShowRegionDates(list);
}

void TransferSortColumn(FileList& list, int column)
{
    const FileListChange change(*list.View);
    TransferSortBy(list, column);
}

void TransferHeaderClick(FileList& list, int column)
{
    TransferSortColumn(list, column == kFileNameColumn ? kFileSortColumn : column);
}

bool TransferAnySelected(const FileList& list)
{
    return TransferFirstSelected(list) >= 0;
}

int TransferCountSelected(const FileList& list)
{
    return static_cast<int>(
        std::count_if(list.Rows.begin(), list.Rows.end(), [](const FileListRow& row) { return row.Selected; }));
}

int TransferCountSelectedFiles(const FileList& list)
{
    return static_cast<int>(std::count_if(list.Rows.begin(), list.Rows.end(),
        [](const FileListRow& row) { return row.Selected && !TransferIsFolderRow(row); }));
}

int TransferFirstSelected(const FileList& list)
{
    const auto found =
        std::find_if(list.Rows.begin(), list.Rows.end(), [](const FileListRow& row) { return row.Selected; });
    return found == list.Rows.end() ? -1 : static_cast<int>(found - list.Rows.begin());
}

void TransferSelectAllFiles(FileList& list)
{
    const FileListChange change(*list.View);
    for (FileListRow& row : list.Rows)
        row.Selected = !TransferIsFolderRow(row);
}

QDateTime TransferRowDate(const FileListRow& row)
{
    return DateTimeOf(row);
}

} // namespace tarvik
