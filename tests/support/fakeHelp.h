// tests/support/fakeHelp.h: what the help viewer would show, written down. It is in force while it lives.
#pragma once

#include "app/help/help.h"

#include <QList>
#include <QStringList>

namespace tarvik {

class FakeHelp final : public HelpDisplay {
public:
    bool ShowContents() override
    {
        return Note(QStringLiteral("contents"));
    }
    bool ShowIndex() override
    {
        return Note(QStringLiteral("index"));
    }
    bool ShowSearch(const QString& query) override
    {
        return Note(QStringLiteral("search ") + query);
    }
    bool ShowTopic(int helpNumber) override
    {
        Topics.append(helpNumber);
        return Note(QStringLiteral("topic %1").arg(helpNumber));
    }

    bool CanShow = true;
    QStringList Asked; ///< "contents", "index", "search words", "topic number"
    QList<int> Topics;

private:
    bool Note(const QString& what)
    {
        Asked.append(what);
        return CanShow;
    }

    PortScope<HelpDisplay> inForce_{ TheHelpDisplay(), *this };
};

} // namespace tarvik
