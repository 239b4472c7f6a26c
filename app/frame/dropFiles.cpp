#include "app/frame/dropFiles.h"

#include "app/frame/startup.h"
#include "app/menu/frameDocuments.h"
#include "app/state/project.h"

#include <algorithm>

namespace tarvik {

namespace {

bool CanOpen(const QString& file)
{
    return TheFrameDocuments()->CanOpen(file);
}

} // namespace

bool DropIsAllowed(const QStringList& files)
{
    return CanAct() && std::any_of(files.begin(), files.end(), CanOpen);
}

bool DropIsAllowed(const QMimeData& data)
{
    return CanAct() && TheFrameDocuments()->CanTake(data);
}

void DropOpenFiles(const QStringList& files)
{
    if (!CanAct()) // a command may have begun since the drop
        return;
    for (const QString& file : files) {
        if (CanOpen(file) && !OpenStartFile(file))
            return;
        if (Program().Ended) // events have run, so the user may have closed the frame
            return;
    }
}

} // namespace tarvik
