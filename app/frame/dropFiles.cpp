#include "app/frame/dropFiles.h"

#include "app/frame/startup.h"
#include "app/platform/processState.h"
#include "app/state/project.h"

#include <algorithm>

namespace tarvik {

namespace {

bool IsKnown(const QString& file)
{
    return TheDropHooks().IsKnownFile && TheDropHooks().IsKnownFile(file);
}

} // namespace

DropHooks& TheDropHooks()
{
    static ProcessState<DropHooks> hooks;
    return hooks.Get();
}

bool DropIsAllowed(const QStringList& files)
{
    return CanAct() && std::any_of(files.begin(), files.end(), IsKnown);
}

bool DropIsAllowed(const QMimeData& data)
{
    return CanAct() && TheDropHooks().IsRecognised && TheDropHooks().IsRecognised(data);
}

void DropOpenFiles(const QStringList& files)
{
    if (!CanAct()) // a command may have begun since the drop
        return;
    for (const QString& file : files) {
        if (IsKnown(file) && !OpenStartFile(file))
            return;
        if (Program().Ended) // events have run: the user may not have waited for the others
            return;
    }
}

} // namespace tarvik
