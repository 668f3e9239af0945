// SPDX-License-Identifier: MIT
#include "platform/help_window.h"

#include <QAbstractTextDocumentLayout>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "widgets/undraggable.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kWantedSize(860, 620);
constexpr int kPositionRole = Qt::UserRole;

/// The name under which Markdown links to a heading: lower case, blanks as hyphens, no punctuation.
QString AnchorName(const QString& heading) {
    static const QRegularExpression dropped(u"[^\\w\\- ]"_s,
                                            QRegularExpression::UseUnicodePropertiesOption);
    return heading.trimmed().toLower().remove(dropped).replace(u' ', u'-');
}

}  // namespace

HelpWindow::HelpWindow()
    : page_(new Undraggable<QTextBrowser>),
      contents_(new QTreeWidget),
      search_(new QLineEdit),
      found_(new QLabel) {
    setObjectName(u"helpWindow"_s);
    setWindowTitle(u"ヘルプ"_s);
    setAttribute(Qt::WA_QuitOnClose, false);  // never what keeps the program running
    auto* whole = new QWidget;
    auto* layout = new QVBoxLayout(whole);
    layout->addWidget(NewToolBar());
    layout->addWidget(NewPages(), 1);
    setCentralWidget(whole);
    AddShortcuts();
    // With room for the frame and title that the desktop adds.
    resize(kWantedSize.boundedTo(screen()->availableSize() - QSize(24, 56)));
}

QToolButton* HelpWindow::NewButton(const QString& name, const QString& caption,
                                   const QKeySequence& key, void (HelpWindow::*action)()) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setText(caption);
    button->setAccessibleName(caption);
    button->setToolTip(u"%1 (%2)"_s.arg(caption, key.toString(QKeySequence::NativeText)));
    button->setShortcut(key);
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, &QToolButton::clicked, this, action);
    return button;
}

QWidget* HelpWindow::NewToolBar() {
    auto* bar = new QWidget;
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    back_ = NewButton(u"cmdBack"_s, u"戻る"_s, Qt::ALT | Qt::Key_Left, &HelpWindow::Back);
    forward_ = NewButton(u"cmdForward"_s, u"進む"_s, Qt::ALT | Qt::Key_Right, &HelpWindow::Forward);
    layout->addWidget(back_);
    layout->addWidget(forward_);
    layout->addWidget(
        NewButton(u"cmdHome"_s, u"ホーム"_s, Qt::ALT | Qt::Key_Home, &HelpWindow::Home));
    layout->addStretch();

    auto* caption = new QLabel(u"検索"_s);
    caption->setBuddy(search_);
    found_->setObjectName(u"LblFound"_s);
    search_->setObjectName(u"txtSearch"_s);
    search_->setAccessibleName(u"検索"_s);
    search_->setClearButtonEnabled(true);
    search_->setMaximumWidth(260);
    connect(search_, &QLineEdit::returnPressed, this, &HelpWindow::FindNext);
    connect(search_, &QLineEdit::textEdited, found_, &QLabel::clear);
    layout->addWidget(found_);
    layout->addWidget(caption);
    layout->addWidget(search_, 1);
    layout->addWidget(
        NewButton(u"cmdFindNext"_s, u"次を検索"_s, Qt::Key_F3, &HelpWindow::FindNext));
    return bar;
}

QWidget* HelpWindow::NewPages() {
    contents_->setObjectName(u"treeContents"_s);
    contents_->setAccessibleName(u"目次"_s);
    contents_->setHeaderLabel(u"目次"_s);
    const auto visitItem = [this](QTreeWidgetItem* item) {
        Visit(item->data(0, kPositionRole).toInt());
    };
    connect(contents_, &QTreeWidget::itemClicked, this, visitItem);
    connect(contents_, &QTreeWidget::itemActivated, this, visitItem);

    page_->setObjectName(u"txtHelp"_s);
    page_->setAccessibleName(u"ヘルプ"_s);
    page_->setOpenLinks(false);
    // The keyboard reaches links and scrolls, and a found text shows as selected.
    page_->setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    connect(page_, &QTextBrowser::anchorClicked, this, &HelpWindow::FollowLink);

    auto* pages = new QSplitter;
    pages->setObjectName(u"splitter"_s);
    pages->addWidget(contents_);
    pages->addWidget(page_);
    pages->setStretchFactor(1, 1);
    pages->setSizes({240, 620});
    pages->setChildrenCollapsible(false);
    return pages;
}

void HelpWindow::AddShortcuts() {
    const auto on = [this](const QKeySequence& key, auto action) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    };
    on(Qt::CTRL | Qt::Key_F, &HelpWindow::FocusSearch);
    on(Qt::Key_Escape, &QWidget::close);
}

void HelpWindow::Load(const QString& file) {
    const QDateTime edited = QFileInfo(file).lastModified();
    if (file != file_ || edited != edited_ || !edited.isValid()) {
        file_ = file;
        edited_ = Read(file) ? edited : QDateTime();
        FillContents();
    }
    found_->clear();
    visited_ = {0};
    current_ = 0;
    ScrollTo(0);
    contents_->setFocus();
}

bool HelpWindow::Read(const QString& file) {
    QFile source(file);
    if (!QFileInfo(file).isFile() || !source.open(QIODevice::ReadOnly)) {
        page_->setPlainText(u"ヘルプファイルを開くことができません。\n"_s +
                            QDir::toNativeSeparators(file));
        return false;
    }
    page_->setSearchPaths({QFileInfo(file).absolutePath()});  // pictures beside the text
    // Read before it is shown: a shown document is laid out anew with every piece that comes in,
    // which takes a second for a text of this length.
    auto* text = new QTextDocument(page_);
    text->setDefaultFont(page_->document()->defaultFont());
    text->setMarkdown(QString::fromUtf8(source.readAll()));
    const std::unique_ptr<QTextDocument> old(std::exchange(text_, text));
    page_->setDocument(text);
    return true;
}

void HelpWindow::FillContents() {
    contents_->clear();
    anchors_.clear();
    QList<QPair<int, QTreeWidgetItem*>> above;  // the headings that enclose the next one
    for (QTextBlock block = page_->document()->begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level == 0) {
            continue;
        }
        while (!above.isEmpty() && above.last().first >= level) {
            above.removeLast();
        }
        auto* item = above.isEmpty() ? new QTreeWidgetItem(contents_)
                                     : new QTreeWidgetItem(above.last().second);
        item->setText(0, block.text());
        item->setToolTip(0, block.text());
        item->setData(0, kPositionRole, block.position());
        above << qMakePair(level, item);

        const QString name = AnchorName(block.text());
        QString unique = name;
        for (int copy = 1; anchors_.contains(unique); ++copy) {
            unique = u"%1-%2"_s.arg(name).arg(copy);
        }
        anchors_[unique] = block.position();
    }
    contents_->expandAll();
}

void HelpWindow::FollowLink(const QUrl& link) {
    if (link.isRelative()) {
        const auto place = anchors_.constFind(link.fragment(QUrl::FullyDecoded));
        if (place != anchors_.constEnd()) {
            Visit(*place);
        }
    } else {
        QDesktopServices::openUrl(link);
    }
}

void HelpWindow::Visit(int position) {
    if (visited_[current_] != position) {
        visited_.resize(current_ + 1);
        visited_ << position;
        ++current_;
    }
    ScrollTo(position);
}

/// Puts the line at `position` to the top of the page.
void HelpWindow::ScrollTo(int position) {
    QTextCursor cursor(page_->document());
    cursor.setPosition(position);
    page_->setTextCursor(cursor);
    const QRectF line = page_->document()->documentLayout()->blockBoundingRect(cursor.block());
    page_->verticalScrollBar()->setValue(position == 0 ? 0 : qRound(line.top()));
    UpdateButtons();
}

void HelpWindow::Back() {
    ScrollTo(visited_[--current_]);
}

void HelpWindow::Forward() {
    ScrollTo(visited_[++current_]);
}

void HelpWindow::Home() {
    Visit(0);
}

void HelpWindow::FocusSearch() {
    search_->setFocus(Qt::ShortcutFocusReason);
    search_->selectAll();
}

/// The next match after the last one, or after the place shown; starts again from the top.
void HelpWindow::FindNext() {
    if (search_->text().isEmpty()) {
        FocusSearch();
        return;
    }
    const QTextDocument& text = *page_->document();
    QTextCursor match = text.find(search_->text(), page_->textCursor());
    if (match.isNull()) {
        match = text.find(search_->text());
    }
    found_->setText(match.isNull() ? u"見つかりません。"_s : QString());
    if (!match.isNull()) {
        page_->setTextCursor(match);  // selects it and scrolls it into view
    }
}

void HelpWindow::UpdateButtons() {
    back_->setEnabled(current_ > 0);
    forward_->setEnabled(current_ + 1 < visited_.size());
}

void WindowHelp::ShowContents(const QString& file) {
    if (window_ == nullptr) {
        window_ = std::make_unique<HelpWindow>();
    }
    window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
    window_->show();
    window_->Load(file);
    window_->raise();
    window_->activateWindow();
}

}  // namespace tolvex
