// app/help/FmHelp.h: the help viewer (contents, index, search and pages of the help book) and pop-up help.
#pragma once

#include "app/help/helpFile.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTabWidget;
class QTextBrowser;
class QTreeWidget;

namespace tarvik {

/// A separate window that stays usable while dialogs are open. helpFile.h reads the book.
class FmHelp final : public QWidget {
    Q_OBJECT
public:
    /// `book` must outlive the viewer.
    explicit FmHelp(const HelpFile& book);

    void ShowContents();
    void ShowIndex();
    void ShowSearch(const QString& query);
    void ShowPath(const QString& path);

    /// The dialog that owns the viewer at present; null without an open dialog.
    QWindow* Owner() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Tab { Contents, Index, Search }; // left to right

    QWidget* BuildSide();
    void FocusTab(int index);
    QWidget* BuildContents();
    QWidget* BuildIndex();
    QWidget* BuildSearch();
    QWidget* BuildPage();
    void BuildShortcuts();
    void FillContents();
    void FillList(QListWidget* list, const std::vector<HelpTopic>& topics);
    void Follow(QListWidget* list);
    void FindKeyword(const QString& start);
    void RunSearch(const QString& query);
    void PageChanged(const QUrl& page);
    void ShowTab(Tab tab, QWidget* focus);
    void SetOwner(QWidget* dialog);

    const HelpFile& book_;
    QString home_;
    bool blocked_ = false; ///< a modal dialog blocks the viewer's events
    QTabWidget* TcHelp = nullptr;
    QTreeWidget* TvContents = nullptr;
    QLineEdit* TbKeyword = nullptr;
    QListWidget* LxIndex = nullptr;
    QLineEdit* TbWords = nullptr;
    QListWidget* LxFound = nullptr;
    QLabel* LbFound = nullptr;
    QPushButton* BtBack = nullptr;
    QPushButton* BtForward = nullptr;
    QPushButton* BtHome = nullptr;
    QTextBrowser* BrPage = nullptr;
};

/// Makes the viewer the display of the help commands.
void BindHelpViewer();

/// The open or hidden viewer; null before it was first shown.
FmHelp* HelpViewer();

/// Closes and forgets the viewer.
void CloseHelpViewer();

/// Shows the pop-up text of a help number at `position` on the screen.
void ShowPopupHelp(QWidget* owner, int helpNumber, QPoint position);

/// Enters the What's This mode: the next click shows the pop-up text of a control or menu item instead of using it.
void EnterWhatsThisMode();

} // namespace tarvik
