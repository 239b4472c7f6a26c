// screen/window/MfScreen.h: the child window that shows a screen document.
#pragma once

#include "screen/document/view.h"

#include <QList>
#include <QWidget>

#include <array>
#include <optional>

class QFrame;
class QLabel;
class QLineEdit;
class QMdiSubWindow;

namespace tarvik {

class DescriptionBox;
class DocumentControls;
class MfMain;
class PictureBox;

/// The content of a child window: picture, line, description. Shows and forwards events; the rules are in
/// screenWindow.h and description.h. Hidden until its picture is drawn.
class MfScreen final : public QWidget, public ScreenView {
    Q_OBJECT
public:
    /// Creates a window in the frame's area, which owns it; the modules release it by `Release`.
    MfScreen(WindowId id, MfMain& frame);
    ~MfScreen() override;

    WindowId Id() const
    {
        return id_;
    }

    QMdiSubWindow* ChildWindow() const
    {
        return child_;
    }

    /// Ends the window: deletes it unless it is being destroyed or handles its own close event.
    void Release();

    WinState State() const override;
    void SetNormal() override;
    void Show() override;
    QSize ClientSize() const override;
    void SetClientSize(QSize size) override;
    void MoveTo(QPoint leftTop) override;
    QSize GraphSize() const override;
    void SetGraphSize(QSize size) override;
    void GraphChanged() override;
    QString Caption() const override;
    void SetCaption(const QString& caption) override;
    void SetIcon(bool imageFromFile) override;
    void SetDescription(const QString& text) override;
    void EditDescription() override;
    void LayOutDescription(const DescriptionLayout& layout) override;
    void SetColours(quint32 paper, quint32 text) override;
    void FillStatus(const QString& date, const QString& text, const QString& time) override;
    void HideStatus() override;
    void Unload() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void BuildDocument();
    void BuildStatus();
    void BuildWindow();
    QList<QWidget*> StatusPanel() const;
    void SetHelp(bool imageFromFile);
    void ShowFirst();
    void ShowDescription();
    void StateChanged(Qt::WindowStates before, Qt::WindowStates now);
    bool MayResize() const;

    WindowId id_;
    MfMain& frame_;
    QMdiSubWindow* child_ = nullptr;
    /// State of the child window as last reported: its own flag is off while a maximised window follows the size of
    /// the area.
    Qt::WindowStates state_;
    DocumentControls* controls_ = nullptr;
    PictureBox* PbDefGraph = nullptr;
    PictureBox* PbGraph = nullptr;
    DescriptionBox* TbDescription = nullptr;
    std::array<QLabel*, 3> TbStatHead{};
    QLineEdit* TbStatus = nullptr;
    QFrame* LnStatus = nullptr;
    QString caption_;
    QSize sized_; ///< set by the program while hidden, when the user can't resize it
    std::optional<bool> imageFromFile_; ///< determines the icon
    bool placed_ = false; ///< position set by the document, not the window system
    bool shown_ = false;
    bool unloaded_ = false;
    bool dying_ = false; ///< its deletion is under way
};

} // namespace tarvik
