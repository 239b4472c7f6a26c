// tests/app/frame/startup_fixture.h: start-up and shutdown with a host and ports that log their calls.
#pragma once

#include "app/frame/startup.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/fakeFrameDocuments.h"
#include "tests/support/fakeInstrumentLink.h"
#include "tests/support/fixture.h"

#include <set>

namespace tarvik {

/// Logs the calls to the frame.
class FakeHost final : public ProjectHost {
public:
    QString Line;
    QString ProgramFolder;
    std::set<Module> Missing;
    int LogoStatus = 0;
    QStringList Log;

    QString CommandLine() const override
    {
        return Line;
    }
    QString ExecutableFolder() const override
    {
        return ProgramFolder;
    }
    ModuleLoadResult LoadModule(Module module, const QString& folder) override
    {
        Log.append(QStringLiteral("load ") + ModuleFileName(module));
        Folders.insert(folder);
        return { Missing.contains(module) ? "reason of " + ModuleFileName(module) : QString() };
    }
    void BuildTexts() override
    {
        Log.append(QStringLiteral("texts"));
    }
    int ShowLogo() override
    {
        Log.append(QStringLiteral("logo"));
        return LogoStatus;
    }
    void FreeLogo() override
    {
        Log.append(QStringLiteral("free logo"));
    }
    void InstallKeyboardHook() override
    {
        Log.append(QStringLiteral("hook"));
    }
    void ApplyBars() override
    {
        Log.append(QStringLiteral("bars"));
    }
    void ShowFrame() override
    {
        Log.append(QStringLiteral("show"));
        if (WhenShown)
            WhenShown();
    }
    void FocusFirstButton() override
    {
        Log.append(QStringLiteral("focus"));
    }
    void RemoveKeyboardHook() override
    {
        Log.append(QStringLiteral("unhook"));
    }

    std::set<QString> Folders;
    std::function<void()> WhenShown;
};

/// The other ports that start-up and shutdown call, with their calls in the log of the host.
class LoggedFrame final : public FakeFrame {
public:
    explicit LoggedFrame(QStringList& log)
        : log_(log)
    {
        Place = FramePlacement{ WinState::Normal, QRectF(15, 30, 9000, 6000) };
    }
    void MoveTwips(QPointF) override
    {
        log_.append(QStringLiteral("settings"));
    }
    void MenuUpdate() override
    {
        if (LogsMenu)
            log_.append(Program().Started ? QStringLiteral("menu started") : QStringLiteral("menu"));
    }
    bool LogsMenu = false;

private:
    QStringList& log_;
};

class LoggedDocuments final : public FakeFrameDocuments {
public:
    explicit LoggedDocuments(QStringList& log)
        : log_(log)
    {
    }
    void ClearTable() override
    {
        log_.append(QStringLiteral("clear windows"));
    }
    bool CloseAll() override
    {
        log_.append(QStringLiteral("close documents"));
        if (OnCloseAll)
            OnCloseAll();
        return Closes;
    }
    bool Open(const QString& path) override
    {
        log_.append(QStringLiteral("open ") + path.mid(path.lastIndexOf(u'/') + 1));
        return FakeFrameDocuments::Open(path);
    }
    std::function<void()> OnCloseAll;

private:
    QStringList& log_;
};

class LoggedLink final : public FakeInstrumentLink {
public:
    explicit LoggedLink(QStringList& log)
        : log_(log)
    {
    }
    void AutoConnect(bool connectedAtExit) override
    {
        log_.append(connectedAtExit ? QStringLiteral("connect 1") : QStringLiteral("connect 0"));
        WasStarted = Program().Started;
    }
    bool WasStarted = false;

private:
    QStringList& log_;
};

class Startup : public ProgramTest {
protected:
    Startup()
    {
        host.ProgramFolder = Folder().chopped(1);
        TheSeams().SystemBox = [this](const QString& title, const QString& text) { boxes.append(title + u'|' + text); };
        TheSeams().PrintError = [this](const QString& text) { printed.append(text); };
    }

    bool Init()
    {
        return ProjectInit(host);
    }

    FakeHost host;
    LoggedFrame frame{ host.Log };
    LoggedDocuments documents{ host.Log };
    LoggedLink link{ host.Log };
    QStringList boxes;
    QStringList printed; ///< to standard error
};

} // namespace tarvik
