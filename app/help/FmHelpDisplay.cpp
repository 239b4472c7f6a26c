// The help viewer as the display of the help commands, and the What's This mode.
#include "app/help/FmHelp.h"

#include "app/forms/form.h"
#include "app/help/help.h"
#include "app/platform/processState.h"

#include <QAction>
#include <QApplication>
#include <QWhatsThis>

#include <memory>

namespace tarvik {

namespace {

std::unique_ptr<FmHelp>& TheViewer()
{
    static ProcessState<std::unique_ptr<FmHelp>> viewer;
    return viewer.Get();
}

/// The viewer of the installed book; null if the book can't be read.
FmHelp* ReadyViewer()
{
    const HelpFile* book = TheHelpFile();
    if (book != nullptr && TheViewer() == nullptr)
        TheViewer() = std::make_unique<FmHelp>(*book);
    return book == nullptr ? nullptr : TheViewer().get();
}

class ViewerDisplay final : public HelpDisplay {
public:
    bool ShowContents() override
    {
        return Show([](FmHelp& viewer) { viewer.ShowContents(); });
    }
    bool ShowIndex() override
    {
        return Show([](FmHelp& viewer) { viewer.ShowIndex(); });
    }
    bool ShowSearch(const QString& query) override
    {
        return Show([&query](FmHelp& viewer) { viewer.ShowSearch(query); });
    }
    bool ShowTopic(int helpNumber) override
    {
        const HelpFile* book = TheHelpFile();
        const QString path = book == nullptr ? QString() : book->TopicPath(helpNumber);
        return !path.isEmpty() && Show([&path](FmHelp& viewer) { viewer.ShowPath(path); });
    }

private:
    template <typename Action>
    static bool Show(Action action)
    {
        FmHelp* viewer = ReadyViewer();
        if (viewer != nullptr)
            action(*viewer);
        return viewer != nullptr;
    }
};

} // namespace

FmHelp* HelpViewer()
{
    return TheViewer().get();
}

void CloseHelpViewer()
{
    TheViewer().reset();
}

void BindHelpViewer()
{
    TheHelpDisplay().Implement<ViewerDisplay>();
}

void ShowPopupHelp(QWidget* owner, int helpNumber, QPoint position)
{
    QWhatsThis::showText(position, PlainTip(PopupHelpText(helpNumber)), owner);
}

/// Menus show the texts of their items. They are set only now, so that the book is not read earlier.
void EnterWhatsThisMode()
{
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        for (QAction* action : window->findChildren<QAction*>()) {
            const int help = action->property(kHelpNumberProperty).toInt();
            if (help != 0)
                action->setWhatsThis(PlainTip(PopupHelpText(help)));
        }
    }
    QWhatsThis::enterWhatsThisMode();
}

} // namespace tarvik
