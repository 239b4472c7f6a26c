// tests/app/frame/frame_form_fixture.h: the whole frame after start-up.
#pragma once

#include "app/frame/MfMain.h"
#include "app/frame/dropFiles.h"
#include "app/menu/commands.h"
#include "app/menu/menu.h"
#include "app/platform/seams.h"
#include "app/settings/settings.h"
#include "app/state/frame.h"
#include "app/state/project.h"
#include "closed/loader.h"
#include "tests/support/fakeCommands.h"
#include "tests/support/fakeFrameDocuments.h"
#include "tests/support/fakeHelp.h"
#include "tests/support/forms.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <QTimer>
#include <QToolButton>

namespace tarvik {

inline bool linkIsUp = false;

/// The whole frame after start-up, in its own folder with the real modules.
class MainFrame : public FormTest {
protected:
    MainFrame()
    {
        linkIsUp = false;
        for (const char* name : { "tvgen", "tvlng", "tvscpi", "tvfio", "tvswp" }) {
            const QString file = QLatin1String(name) + QLatin1String(TARVIK_MODULE_SUFFIX);
            QFile::link(QStringLiteral(TARVIK_MODULES "/") + file, FilePath(file));
        }
        TheSeams().StartTimer = [](int, std::function<void()> tick) { QTimer::singleShot(0, qApp, std::move(tick)); };
    }

    ~MainFrame() override
    {
        frame.reset();
    }

    /// Starts the program; the frame is active afterwards.
    MfMain& Start()
    {
        frame = std::make_unique<MfMain>(Folder().chopped(1));
        if (!frame->Load())
            qFatal("the frame does not load");
        TvScpi().scpiGetConnected = [] { return int16_t(linkIsUp ? 0 : 1); };
        EXPECT_TRUE(QTest::qWaitForWindowActive(frame.get()));
        return *frame;
    }

    QAction& Item(const char* name)
    {
        auto* action = frame->findChild<QAction*>(QLatin1String(name));
        if (action == nullptr)
            qFatal("no %s", name);
        return *action;
    }

    QToolButton& Cm(int index)
    {
        return Find<QToolButton>(*frame, QStringLiteral("Cm[%1]").arg(index));
    }

    static void SetLink(bool up)
    {
        linkIsUp = up;
        TheFrame()->MenuUpdate();
    }

    /// Counts the runs of a command.
    static void Count(Command command, int& runs)
    {
        BindCommand(command, [&runs] { ++runs; });
    }

    /// Opens `count` child windows, titled "Window 1" and so on; the last one is active.
    QList<QMdiSubWindow*> OpenWindows(int count)
    {
        QList<QMdiSubWindow*> windows;
        for (int number = 1; number <= count; ++number) {
            auto* content = new QWidget;
            content->setFocusPolicy(Qt::StrongFocus);
            windows.append(frame->ChildArea()->addSubWindow(content));
            windows.back()->setWindowTitle(QStringLiteral("Window %1").arg(number));
            windows.back()->show();
        }
        return windows;
    }

    /// Gives the menus an active document.
    void OpenDocument(bool descriptionVisible = false)
    {
        documents.Now = { true, false, true, false, false, descriptionVisible };
    }

    FakeHelp help;
    FakeFrameDocuments documents;
    std::unique_ptr<MfMain> frame;
};

} // namespace tarvik
