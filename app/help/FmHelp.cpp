#include "app/help/FmHelp.h"

#include "app/forms/Pictures.h"
#include "app/forms/darkColor.h"
#include "app/forms/form.h"
#include "app/help/help.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QTabBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWindow>

#include <array>

namespace tarvik {

namespace {

constexpr int kPathRole = Qt::UserRole;
constexpr int kMaxQueryLength = 200;
constexpr QSize kInitialSize(940, 660);
constexpr int kSideWidthPx = 300;

/// Shows pages of the book and nothing from anywhere else.
class PageView final : public QTextBrowser {
public:
    PageView(const HelpFile& book, QWidget* parent)
        : QTextBrowser(parent)
        , book_(book)
    {
    }

    QVariant loadResource(int type, const QUrl& name) override
    {
        QString path = name.path();
        if (IsDark(palette().color(QPalette::Base)) && path.endsWith(QLatin1String("style.css")))
            path.replace(QLatin1String("style.css"), QLatin1String("style-dark.css"));
        const std::optional<QByteArray> bytes = book_.Page(path);
        if (!bytes)
            return {};
        const bool isText = type == QTextDocument::HtmlResource || type == QTextDocument::StyleSheetResource;
        return isText ? QVariant(QString::fromUtf8(*bytes)) : QVariant(*bytes);
    }

private:
    const HelpFile& book_;
};

/// Spaced rows, elided instead of scrolled.
class RowDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, option.fontMetrics.height() / 2);
    }
};

void PrepareList(QAbstractItemView* list, const char* name, TextNumber<0> text)
{
    NameControl(list, QString::fromLatin1(name));
    list->setAccessibleName(LngStr(text));
    list->setItemDelegate(new RowDelegate(list));
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setTextElideMode(Qt::ElideRight);
}

QVBoxLayout* NewColumn(QWidget* parent)
{
    auto* column = new QVBoxLayout(parent);
    column->setContentsMargins(6, 6, 6, 6);
    column->setSpacing(6);
    return column;
}

} // namespace

FmHelp::FmHelp(const HelpFile& book)
    : book_(book)
    , home_(book.Contents().front().Path)
{
    setObjectName(QStringLiteral("FmHelp"));
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowIcon(ProgramIcon());
    SetControlHelp(this, TextId::HelpTitle);
    LngSetForm(this, TextId::HelpTitle);
    auto* halves = new QSplitter(this);
    NameControl(halves, QStringLiteral("SpHelp"));
    halves->setChildrenCollapsible(false);
    halves->addWidget(BuildSide());
    halves->addWidget(BuildPage());
    halves->setStretchFactor(1, 1);
    halves->setSizes({ kSideWidthPx, kInitialSize.width() - kSideWidthPx });
    auto* frame = new QVBoxLayout(this);
    frame->setContentsMargins(8, 8, 8, 8);
    frame->addWidget(halves);
    BuildShortcuts();
    resize(kInitialSize.boundedTo(screen()->availableSize() * 9 / 10));
    BrPage->setSource(QUrl(home_));
}

QWidget* FmHelp::BuildSide()
{
    TcHelp = new QTabWidget;
    NameControl(TcHelp, QStringLiteral("TcHelp"));
    TcHelp->addTab(BuildContents(), LngStr(TextId::HelpContents));
    TcHelp->addTab(BuildIndex(), LngStr(TextId::HelpIndex));
    TcHelp->addTab(BuildSearch(), LngStr(TextId::HelpSearch));
    connect(TcHelp, &QTabWidget::currentChanged, this, &FmHelp::FocusTab);
    return TcHelp;
}

/// Moves the focus into the chosen tab, unless the tab bar has it: arrow keys go on to the next tab.
void FmHelp::FocusTab(int index)
{
    if (focusWidget() != TcHelp->tabBar())
        std::array<QWidget*, 3>{ TvContents, TbKeyword, TbWords }.at(static_cast<size_t>(index))->setFocus();
}

QWidget* FmHelp::BuildContents()
{
    auto* tab = new QWidget;
    TvContents = new QTreeWidget(tab);
    PrepareList(TvContents, "TvContents", TextId::HelpContentsList);
    TvContents->setHeaderHidden(true);
    TvContents->setUniformRowHeights(true);
    FillContents();
    const auto follow = [this](QTreeWidgetItem* item) { BrPage->setSource(QUrl(item->data(0, kPathRole).toString())); };
    connect(TvContents, &QTreeWidget::itemClicked, this, follow);
    connect(TvContents, &QTreeWidget::itemActivated, this, follow);
    NewColumn(tab)->addWidget(TvContents);
    return tab;
}

QWidget* FmHelp::BuildIndex()
{
    auto* tab = new QWidget;
    auto* label = NewLabel(tab, "LbKeyword", { TextId::HelpKeyword });
    TbKeyword = NewTextBox(tab, "TbKeyword", 0, kMaxQueryLength);
    BindLabel(label, TbKeyword);
    LxIndex = new QListWidget(tab);
    PrepareList(LxIndex, "LxIndex", TextId::HelpKeywordList);
    FillList(LxIndex, book_.Index());
    connect(LxIndex, &QListWidget::itemClicked, this, [this] { Follow(LxIndex); });
    connect(LxIndex, &QListWidget::itemActivated, this, [this] { Follow(LxIndex); });
    connect(TbKeyword, &QLineEdit::textEdited, this, &FmHelp::FindKeyword);
    connect(TbKeyword, &QLineEdit::returnPressed, this, [this] { Follow(LxIndex); });
    auto* column = NewColumn(tab);
    column->addWidget(label);
    column->addWidget(TbKeyword);
    column->addWidget(LxIndex);
    return tab;
}

QWidget* FmHelp::BuildSearch()
{
    auto* tab = new QWidget;
    auto* label = NewLabel(tab, "LbWords", { TextId::HelpWords });
    TbWords = NewTextBox(tab, "TbWords", 0, kMaxQueryLength);
    TbWords->setClearButtonEnabled(true);
    BindLabel(label, TbWords);
    LxFound = new QListWidget(tab);
    PrepareList(LxFound, "LxFound", TextId::HelpFoundList);
    LbFound = NewLabel(tab, "LbFound", { TextId::HelpSearchPrompt });
    LbFound->setWordWrap(true);
    connect(LxFound, &QListWidget::itemClicked, this, [this] { Follow(LxFound); });
    connect(LxFound, &QListWidget::itemActivated, this, [this] { Follow(LxFound); });
    connect(TbWords, &QLineEdit::textChanged, this, &FmHelp::RunSearch);
    connect(TbWords, &QLineEdit::returnPressed, this, [this] { Follow(LxFound); });
    auto* column = NewColumn(tab);
    column->addWidget(label);
    column->addWidget(TbWords);
    column->addWidget(LbFound);
    column->addWidget(LxFound);
    return tab;
}

QWidget* FmHelp::BuildPage()
{
    auto* side = new QWidget;
    BtBack = NewButton(side, "BtBack", { TextId::HelpBack });
    BtForward = NewButton(side, "BtForward", { TextId::HelpForward });
    BtHome = NewButton(side, "BtHome", { TextId::HelpHome });
    BtBack->setToolTip(PlainTip(LngStr(TextId::HelpBackHint)));
    BtForward->setToolTip(PlainTip(LngStr(TextId::HelpForwardHint)));
    BtHome->setToolTip(PlainTip(LngStr(TextId::HelpHomeHint)));
    BrPage = new PageView(book_, side);
    NameControl(BrPage, QStringLiteral("BrPage"));
    BrPage->setAccessibleName(LngStr(TextId::HelpTopicColumn));
    BrPage->setOpenExternalLinks(false);
    connect(BtBack, &QPushButton::clicked, BrPage, &QTextBrowser::backward);
    connect(BtForward, &QPushButton::clicked, BrPage, &QTextBrowser::forward);
    connect(BtHome, &QPushButton::clicked, this, [this] { BrPage->setSource(QUrl(home_)); });
    connect(BrPage, &QTextBrowser::backwardAvailable, BtBack, &QWidget::setEnabled);
    connect(BrPage, &QTextBrowser::forwardAvailable, BtForward, &QWidget::setEnabled);
    connect(BrPage, &QTextBrowser::sourceChanged, this, &FmHelp::PageChanged);
    BtBack->setEnabled(false);
    BtForward->setEnabled(false);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(6);
    for (QPushButton* button : { BtBack, BtForward, BtHome })
        buttons->addWidget(button);
    buttons->addStretch();
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(6, 0, 0, 0);
    column->setSpacing(6);
    column->addLayout(buttons);
    column->addWidget(BrPage);
    return side;
}

void FmHelp::BuildShortcuts()
{
    const auto add = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    add(QKeySequence(Qt::ALT | Qt::Key_Left), [this] { BtBack->click(); });
    add(QKeySequence(Qt::ALT | Qt::Key_Right), [this] { BtForward->click(); });
    add(QKeySequence(Qt::ALT | Qt::Key_Home), [this] { BtHome->click(); });
    add(QKeySequence(QKeySequence::Find), [this] { ShowTab(Tab::Search, TbWords); });
    add(QKeySequence(QKeySequence::ZoomIn), [this] { BrPage->zoomIn(); });
    add(QKeySequence(QKeySequence::ZoomOut), [this] { BrPage->zoomOut(); });
    add(QKeySequence(Qt::CTRL | Qt::Key_0), [this] { BrPage->setFont({}); });
}

void FmHelp::FillContents()
{
    std::vector<QTreeWidgetItem*> parents{ TvContents->invisibleRootItem() };
    for (const HelpTopic& topic : book_.Contents()) {
        const auto depth = std::min(static_cast<size_t>(topic.Level), parents.size() - 1);
        parents.resize(depth + 1);
        auto* item = new QTreeWidgetItem(parents.back(), { topic.Title });
        item->setData(0, kPathRole, topic.Path);
        parents.push_back(item);
    }
}

void FmHelp::FillList(QListWidget* list, const std::vector<HelpTopic>& topics)
{
    list->clear();
    for (const HelpTopic& topic : topics) {
        const QString page = book_.TitleOf(topic.Path.section(u'#', 0, 0));
        const bool needsPage = list == LxFound && page != topic.Title;
        auto* item =
            new QListWidgetItem(needsPage ? topic.Title + LngStr(TextId::TitleSeparator) + page : topic.Title, list);
        item->setData(kPathRole, topic.Path);
        item->setToolTip(PlainTip(item->text()));
    }
}

void FmHelp::Follow(QListWidget* list)
{
    const QListWidgetItem* item = list->currentItem() == nullptr ? list->item(0) : list->currentItem();
    if (item != nullptr)
        BrPage->setSource(QUrl(item->data(kPathRole).toString()));
}

void FmHelp::FindKeyword(const QString& start)
{
    for (int row = 0; row < LxIndex->count(); ++row) {
        if (!LxIndex->item(row)->text().startsWith(start, Qt::CaseInsensitive))
            continue;
        LxIndex->setCurrentRow(row);
        LxIndex->scrollToItem(LxIndex->item(row), QAbstractItemView::PositionAtTop);
        return;
    }
}

void FmHelp::RunSearch(const QString& query)
{
    const std::vector<HelpTopic> found = book_.Search(query);
    FillList(LxFound, found);
    if (query.simplified().isEmpty())
        LbFound->setText(LngStr(TextId::HelpSearchPrompt));
    else if (found.empty())
        LbFound->setText(LngStr(TextId::HelpNothingFound));
    else
        LbFound->setText(LngStr1(TextId::HelpTopicsFound, QString::number(found.size())));
}

/// Title and contents follow the page, however it was reached.
void FmHelp::PageChanged(const QUrl& page)
{
    const QString path = page.toString();
    setWindowTitle(book_.TitleOf(path) + LngStr(TextId::TitleSeparator) + LngStr(TextId::HelpTitle));
    QTreeWidgetItem* best = nullptr;
    for (QTreeWidgetItemIterator at(TvContents); *at != nullptr; ++at) {
        const QString topic = (*at)->data(0, kPathRole).toString();
        const bool isSamePage = topic.section(u'#', 0, 0) == path.section(u'#', 0, 0);
        if (topic == path || (best == nullptr && isSamePage))
            best = *at;
    }
    if (best == nullptr)
        return;
    TvContents->setCurrentItem(best);
    TvContents->scrollToItem(best);
}

void FmHelp::ShowContents()
{
    ShowTab(Tab::Contents, TvContents);
}

void FmHelp::ShowIndex()
{
    ShowTab(Tab::Index, TbKeyword);
}

void FmHelp::ShowSearch(const QString& query)
{
    TbWords->setText(query == QLatin1String(kHelpSearchQuery) ? QString() : query);
    ShowTab(Tab::Search, TbWords);
}

void FmHelp::ShowPath(const QString& path)
{
    BrPage->setSource(QUrl(path));
    ShowTab(Tab::Contents, BrPage);
}

void FmHelp::ShowTab(Tab tab, QWidget* focus)
{
    TcHelp->setCurrentIndex(static_cast<int>(tab));
    winId(); // the window must exist before a dialog can own it
    SetOwner(QApplication::activeModalWidget());
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
    focus->setFocus(Qt::OtherFocusReason);
}

QWindow* FmHelp::Owner() const
{
    return windowHandle() == nullptr ? nullptr : windowHandle()->transientParent();
}

/// A modal dialog blocks all windows that it does not own.
void FmHelp::SetOwner(QWidget* dialog)
{
    QWindow* owner = dialog == nullptr ? nullptr : dialog->windowHandle();
    if (windowHandle() == nullptr || windowHandle()->transientParent() == owner)
        return;
    const bool mustReshow = blocked_ && isVisible();
    if (mustReshow)
        hide(); // blocking is determined when a window is shown
    windowHandle()->setTransientParent(owner);
    if (mustReshow)
        show();
}

bool FmHelp::eventFilter(QObject* watched, QEvent* event)
{
    const bool isShown = event->type() == QEvent::Show;
    if (!isShown && event->type() != QEvent::Hide)
        return false;
    auto* dialog = qobject_cast<QWidget*>(watched);
    if (dialog == nullptr || dialog == this || !dialog->isWindow() || !dialog->isModal())
        return false;
    if (isShown)
        windowHandle()->setTransientParent(dialog->windowHandle());
    else
        QTimer::singleShot(0, this, [this] { SetOwner(QApplication::activeModalWidget()); });
    return false;
}

void FmHelp::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && BrPage != nullptr)
        BrPage->reload();
}

bool FmHelp::event(QEvent* event)
{
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked)
        blocked_ = event->type() == QEvent::WindowBlocked;
    return QWidget::event(event);
}

void FmHelp::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    qApp->installEventFilter(this);
}

void FmHelp::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        qApp->removeEventFilter(this);
}

void FmHelp::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace tarvik
