// app/frame/KeyboardFilter.h: the one event filter on the application: keys for the keyboard hook, F1 on a control, and
// the clicks of the What's This mode.
#pragma once

#include <QObject>
#include <QPoint>

class QKeyEvent;
class QMouseEvent;

namespace tarvik {

struct HookKey;

class KeyboardFilter final : public QObject {
    Q_OBJECT
public:
    explicit KeyboardFilter(QObject* parent = nullptr);

    void Install();
    void Remove();

    /// True while Up or Down is held.
    static bool ArrowKeyIsHeld();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool OnKey(QObject* watched, QKeyEvent& event);
    bool IsRepeat(const QKeyEvent& event); ///< of Enter
    void NoteEscape(QKeyEvent& event);
    bool IsOurEscape(const QKeyEvent& event);
    bool PassToHook(const HookKey& key);
    bool ShowTopicOf(QObject* watched);
    bool OpenMenuOf(QObject* watched);
    bool PopUpHelpOf(QObject* watched, QPoint position);
    bool PopUpHelpOfDisabledItem(QObject* watched, const QMouseEvent& event);

    quint64 releasedAt_ = 0; ///< time stamp of the last release of Enter; 0: none
    bool escapeIsOurs_ = false; ///< the Escape that is held went down in a form and not in a pop-up or file dialog
    int escapeDepth_ = 0; ///< Escapes that are being handled; one that asks a question runs an event loop
    bool escapeWasNested_ = false; ///< one of them has ended another
    bool escapeHadOther_ = false; ///< the Escape that is about to go down had something else to end
};

} // namespace tarvik
