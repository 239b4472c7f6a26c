// app/forms/form.h: the base of every dialog form: its life cycle on the dialog stack, and the helpers that make its
// controls.
#pragma once

#include "app/forms/dialog.h"
#include "app/text/textNumber.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QEventLoop;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

namespace tarvik {

/// A form runs through Load, its message loop, QueryUnload and OnUnload, in this order, each time it is shown.
/// `DialogShow(form)` starts it; Close buttons call `Unload`. Escape never reaches the form: the keyboard hook
/// ends it through the dialog stack.
class FormBase : public QDialog, public DialogForm {
    Q_OBJECT
public:
    /// `name` is the form's class name and becomes its object name.
    explicit FormBase(const char* name, QWidget* parent = nullptr);
    ~FormBase() override;

    void RunDialog(bool blocking) override;
    bool HasActivation() const override;
    void Unload() override;
    void PrepareWindow(bool removeClose) override;
    void ShowBusyPointer(bool busy) override;

    /// True from RunDialog until the form has unloaded.
    bool IsLoaded() const
    {
        return loaded_;
    }

    bool IsClosed() const
    {
        return !loaded_;
    }

    /// Help number of the form itself: what F1 shows for controls without one.
    int HelpNumber() const;

protected:
    /// The form's load event: pushes the form on the stack (`DialogPush`) and fills it. False unloads it at once.
    virtual bool OnLoad() = 0;

    /// True lets the form close.
    virtual bool QueryUnload()
    {
        return true;
    }

    /// The form is closing; it leaves the stack right after this.
    virtual void OnUnload() { }

    /// First activation, with the message loop running.
    virtual void OnActivate() { }

    void SetHelpNumber(TopicNumber topic);

    /// Processes events until the form has been painted, for half a second at most (a form may be hidden). For an
    /// activation whose work would delay the painting.
    void WaitUntilPainted();

    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void reject() override { }

private:
    void FinishUnload();
    void RunLoop();

    QEventLoop* loop_ = nullptr; ///< of a form that is shown blocking
    bool loaded_ = false;
    bool activated_ = false;
    bool painted_ = false;
    bool refusing_ = false;
};

/// The busy pointer on a form for the guard's lifetime. Guards nest.
class BusyPointer {
public:
    explicit BusyPointer(FormBase& form);
    ~BusyPointer();
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    FormBase& form_;
    bool wasBusy_;
};

/// Text, help topic and hint of a control.
struct ControlTexts {
    TextNumber<0> Text = {};
    TopicNumber Help = {};
    TextNumber<0> Hint = {}; ///< status line text while the pointer is over the control
};

/// Space around a form's contents.
inline constexpr int kFormMarginPx = 16;

/// Property of a control or action that holds its help number.
inline constexpr const char* kHelpNumberProperty = "HelpNumber";

/// Property of a control that takes Escape for itself while it has the focus, so that the form stays open.
inline constexpr const char* kKeepsEscapeProperty = "KeepsEscape";

/// The help number that F1 shows for `control`: its own, else its nearest parent's; 0 without one.
int HelpNumberOf(const QWidget* control);

void SetControlHelp(QWidget* control, TopicNumber help);

/// Property of a control that holds its hint number.
inline constexpr const char* kHintNumberProperty = "HintNumber";

/// Shows text `hint` on the status line while the pointer is over `control`. A later call replaces it.
void SetControlHint(QWidget* control, TextNumber<0> hint);

/// Twips in one pixel of the control's screen: 15 at 96 dpi.
double TwipsPerPixel(const QWidget* control);
int PixelsFromTwips(const QWidget* control, double twips);

/// Sets a control's text and geometry by text number, by the kind of the control: a combo box gets no text; a text
/// box gets it as its content; labels, buttons and frames as their caption; lines, scroll bars, lists and pictures
/// none. Adjustments of the geometry apply when 4 exist (a combo box: at least 3); those of a line move its two ends.
void LngSetCtrl(QWidget* control, TextNumber<0> id);

/// Property of a form: QSize in pixels by which its language enlarges it beyond its layout.
inline constexpr const char* kGrowthProperty = "LanguageGrowth";

/// As LngSetCtrl for a form: sets its title; moves and sizes it if exactly 4 adjustments exist. A form whose layout
/// fixes its size stays at that size, which grows with its controls.
void LngSetForm(QWidget* form, TextNumber<0> id);

/// Sets the object name, and the accessible name if there is none yet.
void NameControl(QWidget* control, const QString& name);

/// Makers of controls. Each returns a child of `parent` under its given name, with texts and help set.
QPushButton* NewButton(QWidget* parent, const char* name, const ControlTexts& texts);
QLabel* NewLabel(QWidget* parent, const char* name, const ControlTexts& texts);
QLineEdit* NewTextBox(QWidget* parent, const char* name, TopicNumber help, int maxLength);
QComboBox* NewCombo(QWidget* parent, const char* name, TopicNumber help);
QCheckBox* NewCheckBox(QWidget* parent, const char* name, const ControlTexts& texts);
QRadioButton* NewOption(QWidget* parent, const QString& name, const ControlTexts& texts);
QGroupBox* NewFrame(QWidget* parent, const char* name, const ControlTexts& texts);

/// Binds a label to the control it names: buddy for its mnemonic, and the control's accessible name.
void BindLabel(QLabel* label, QWidget* control);

/// `text` without mnemonic marks and without a closing colon, for accessible names.
QString PlainCaption(const QString& text);

/// The tool tip that shows `text` literally, since a name may look like markup. Empty for an empty text.
QString PlainTip(const QString& text);

/// Restricts the input to Windows-1252, so that a file keeps all of it.
void LimitToAnsi(QLineEdit* textBox);

/// As above for a number, which may also have the characters of `PlainNumber`.
void LimitToNumber(QLineEdit* textBox);

} // namespace tarvik
