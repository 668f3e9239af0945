// SPDX-License-Identifier: MIT
#include "app/help_window.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScreen>
#include <QSet>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "base/text.h"
#include "widgets/controls.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kWantedSize(860, 620);
constexpr int kAnchorRole = Qt::UserRole;

/// Where the page is for QTextBrowser, with the name of a heading behind it. It has no path: a page
/// with one is read anew at the next jump when the document was changed, as by naming the headings.
QUrl PageUrl(const QString& heading = {}) {
    QUrl url(u"qrc:"_s);
    url.setFragment(heading);
    return url;
}

/// The name under which Markdown links to a heading: lower case, blanks as hyphens, no punctuation,
/// and a number behind it where `taken` already has that.
QString AnchorName(const QString& heading, const QSet<QString>& taken) {
    static const QRegularExpression dropped(u"[^\\w\\- ]"_s,
                                            QRegularExpression::UseUnicodePropertiesOption);
    const QString name = heading.trimmed().toLower().remove(dropped).replace(u' ', u'-');
    QString unique = name;
    for (int copy = 1; taken.contains(unique); ++copy) {
        unique = u"%1-%2"_s.arg(name).arg(copy);
    }
    return unique;
}

QToolButton* NewButton(const QString& name, const QString& caption, const QKeySequence& key) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setText(caption);
    button->setAccessibleName(caption);
    button->setToolTip(u"%1 (%2)"_s.arg(caption, key.toString(QKeySequence::NativeText)));
    button->setShortcut(key);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

}  // namespace

class HelpPage : public Undraggable<QTextBrowser> {
  protected:
    QVariant loadResource(int type, const QUrl& name) override {
        return name == PageUrl() ? QVariant(u" "_s)  // the window puts the text into the page
                                 : QTextBrowser::loadResource(type, QUrl(name.path()));
    }
};

HelpWindow::HelpWindow()
    : page_(new HelpPage), contents_(new QTreeWidget), search_(new QLineEdit), found_(new QLabel) {
    setObjectName(u"helpWindow"_s);
    setWindowTitle(Text::tr("ヘルプ"));
    setAttribute(Qt::WA_QuitOnClose, false);  // never what keeps the program running
    auto* whole = new QWidget;
    auto* layout = new QVBoxLayout(whole);
    layout->addWidget(NewToolBar());
    layout->addWidget(NewPages(), 1);
    setCentralWidget(whole);
    connect(new QShortcut(Qt::CTRL | Qt::Key_F, this), &QShortcut::activated, this,
            &HelpWindow::FocusSearch);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    // With room for the frame and title that the desktop adds.
    resize(kWantedSize.boundedTo(screen()->availableSize() - QSize(24, 56)));
}

QWidget* HelpWindow::NewToolBar() {
    auto* back = NewButton(u"cmdBack"_s, Text::tr("戻る"), Qt::ALT | Qt::Key_Left);
    auto* forward = NewButton(u"cmdForward"_s, Text::tr("進む"), Qt::ALT | Qt::Key_Right);
    auto* home = NewButton(u"cmdHome"_s, Text::tr("ホーム"), Qt::ALT | Qt::Key_Home);
    auto* next = NewButton(u"cmdFindNext"_s, Text::tr("次を検索"), Qt::Key_F3);
    connect(back, &QToolButton::clicked, page_, &QTextBrowser::backward);
    connect(forward, &QToolButton::clicked, page_, &QTextBrowser::forward);
    connect(home, &QToolButton::clicked, page_, &QTextBrowser::home);
    connect(next, &QToolButton::clicked, this, &HelpWindow::FindNext);
    connect(page_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(page_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);

    auto* caption = new QLabel(Text::tr("検索"));
    caption->setBuddy(search_);
    found_->setObjectName(u"LblFound"_s);
    search_->setObjectName(u"txtSearch"_s);
    search_->setAccessibleName(Text::tr("検索"));
    search_->setClearButtonEnabled(true);
    search_->setMaximumWidth(260);
    connect(search_, &QLineEdit::returnPressed, this, &HelpWindow::FindNext);
    connect(search_, &QLineEdit::textEdited, found_, &QLabel::clear);

    auto* bar = new QWidget;
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(back);
    layout->addWidget(forward);
    layout->addWidget(home);
    layout->addStretch();
    layout->addWidget(found_);
    layout->addWidget(caption);
    layout->addWidget(search_, 1);
    layout->addWidget(next);
    return bar;
}

QWidget* HelpWindow::NewPages() {
    contents_->setObjectName(u"treeContents"_s);
    contents_->setAccessibleName(Text::tr("目次"));
    contents_->setHeaderLabel(Text::tr("目次"));
    const auto visit = [this](QTreeWidgetItem* item) {
        page_->setSource(PageUrl(item->data(0, kAnchorRole).toString()));
    };
    connect(contents_, &QTreeWidget::itemClicked, this, visit);
    connect(contents_, &QTreeWidget::itemActivated, this, visit);

    page_->setObjectName(u"txtHelp"_s);
    page_->setAccessibleName(Text::tr("ヘルプ"));
    page_->setOpenExternalLinks(true);
    page_->setSource(PageUrl(), QTextDocument::MarkdownResource);
    // A search goes on from the first line that shows. And the way back remembers where the cursor
    // is: were it still on the link that was followed, going there again would lead to the link.
    connect(page_, &QTextBrowser::sourceChanged, this, [this] {
        const QPoint firstLine(0, page_->fontMetrics().height());
        page_->setTextCursor(page_->cursorForPosition(firstLine));
    });
    // The keyboard reaches links and scrolls, and a found text shows as selected.
    page_->setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);

    auto* pages = new QSplitter;
    pages->setObjectName(u"splitter"_s);
    pages->addWidget(contents_);
    pages->addWidget(page_);
    pages->setStretchFactor(1, 1);
    pages->setSizes({240, 620});
    pages->setChildrenCollapsible(false);
    return pages;
}

void HelpWindow::Load(const QString& file) {
    const QDateTime edited = QFileInfo(file).lastModified();
    if (file != file_ || edited != edited_ || !edited.isValid()) {
        file_ = file;
        edited_ = Read(file) ? edited : QDateTime();
    }
    page_->setSource(PageUrl());
    page_->clearHistory();
    found_->clear();
    contents_->setFocus();
}

bool HelpWindow::Read(const QString& file) {
    QFile source(file);
    const bool readable = QFileInfo(file).isFile() && source.open(QIODevice::ReadOnly);
    page_->setSearchPaths({QFileInfo(file).absolutePath()});  // pictures beside the text
    // In one edit: the page would be laid out anew with every piece that comes in, which takes a
    // second for a text of this length.
    QTextCursor edit(page_->document());
    edit.beginEditBlock();
    if (readable) {
        page_->setMarkdown(QString::fromUtf8(source.readAll()));
    } else {
        page_->setPlainText(Text::tr("ヘルプファイルを開くことができません。\n%1")
                                .arg(QDir::toNativeSeparators(file)));
    }
    FillContents();
    edit.endEditBlock();
    return readable;
}

/// Lists the headings and names them in the page, so that links reach them.
void HelpWindow::FillContents() {
    contents_->clear();
    QSet<QString> anchors;
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
        above << qMakePair(level, item);

        const QString name = AnchorName(block.text(), anchors);
        anchors << name;
        item->setData(0, kAnchorRole, name);
        QTextCharFormat named;
        named.setAnchor(true);
        named.setAnchorNames({name});
        QTextCursor heading(block);
        heading.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        heading.mergeCharFormat(named);
    }
    contents_->expandAll();
}

void HelpWindow::FocusSearch() {
    search_->setFocus(Qt::ShortcutFocusReason);
    search_->selectAll();
}

/// The next match after the last one, or after the place shown; starts again from the beginning.
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
    found_->setText(match.isNull() ? Text::tr("見つかりません。") : QString());
    if (!match.isNull()) {
        page_->setTextCursor(match);  // selects it and scrolls it into view
    }
}

void ShowHelp(std::unique_ptr<HelpWindow>& window, const QString& file) {
    if (window == nullptr) {
        window = std::make_unique<HelpWindow>();
    }
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->Load(file);
    window->raise();
    window->activateWindow();
}

}  // namespace tolvex
