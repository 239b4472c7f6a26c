// app/help/FmHelp.h: the help viewer: contents, index and search of the help book beside its pages, and the pop-up
// texts.
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

/// A window of its own that stays usable while dialogs are open. Rules and reading are in helpFile.h.
class FmHelp final : public QWidget {
    Q_OBJECT
public:
    /// `book` must outlive the viewer.
    explicit FmHelp(const HelpFile& book);

    void ShowContents();
    void ShowIndex();
    void ShowSearch(const QString& query);
    void ShowPath(const QString& path);

    /// The dialog that the viewer belongs to at the moment; null without an open dialog.
    QWindow* Owner() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* BuildSide();
    void FocusTab(int tab);
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
    void Present(int tab, QWidget* focus);
    void BelongTo(QWidget* dialog);

    const HelpFile& book_;
    QString home_;
    bool blocked_ = false; ///< a dialog keeps the viewer from its events
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

/// The help commands show their pages in the viewer from now on.
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
