// screen/diagram/FmDatasetViewer.h: the window of a data set: a diagram with its description.
#pragma once

#include "app/forms/form.h"
#include "screen/document/view.h"

namespace tarvik {

class DocumentControls;

/// Shows the diagram of a data set window over its whole area, the description below it. Modal, so it is not among the
/// frame's child windows; it takes part in everything else that document windows do. Commands on the document are in
/// its pop-up menu `SwMn` and on the frame's keys. Closing frees the document.
class FmDatasetViewer final : public FormBase, public ScreenView {
    Q_OBJECT
public:
    /// `name` becomes the caption; without one it is the title of the window.
    FmDatasetViewer(WindowId id, const QString& name, QWidget* parent = nullptr);
    ~FmDatasetViewer() override;

    bool IsDocument() const override
    {
        return true;
    }
    bool CanCloseUnasked() const override
    {
        return true;
    }

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

protected:
    bool OnLoad() override;
    bool QueryUnload() override;
    void OnUnload() override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    QSize Decoration() const;
    void KeepOnScreen();
    void Popup(QPoint at);

    WindowId id_;
    QString name_;
    DocumentControls* controls_ = nullptr;
    QString caption_;
    QSize drawnFor_; ///< client size for which the contents have been laid out
};

/// Implements TheDatasetForms.
void BindDatasetForms();

} // namespace tarvik
