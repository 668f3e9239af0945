// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QMainWindow>
#include <memory>

#include "base/help_viewer.h"

class QLabel;
class QLineEdit;
class QTextBlock;
class QTextBrowser;
class QTextDocument;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;
class QUrl;

namespace tolvex {

/// A help text in Markdown (UTF-8) beside the list of its headings, with search and a way back.
/// Links to "#heading-text" jump within the text, web addresses open in the browser.
/// Keys: Ctrl+F search, Enter or F3 next match, Alt+Left / Alt+Right back and forward, Alt+Home
/// beginning, Esc closes.
class HelpWindow : public QMainWindow {
  public:
    HelpWindow();

    /// Reads `file`, whatever its suffix, and goes to its beginning. A file that was read before
    /// and has not changed since is not read again. When it can't be read the page says so.
    void Load(const QString& file);

  private:
    QWidget* NewToolBar();
    QToolButton* NewButton(const QString& name, const QString& caption, const QKeySequence& key,
                           void (HelpWindow::*action)());
    QWidget* NewPages();
    void AddShortcuts();

    bool Read(const QString& file);
    void FillContents();
    void FollowLink(const QUrl& link);
    void Visit(int position);
    void ScrollTo(int position);
    void Back();
    void Forward();
    void Home();
    void FocusSearch();
    void FindNext();
    void UpdateButtons();

    QTextBrowser* page_;
    QTextDocument* text_ = nullptr;  ///< what the page shows, once a file was read; owned by it
    QTreeWidget* contents_;
    QLineEdit* search_;
    QLabel* found_;
    QToolButton* back_;
    QToolButton* forward_;

    QString file_;                 ///< what the page shows
    QDateTime edited_;             ///< when that was changed last; invalid when it can't be read
    QHash<QString, int> anchors_;  ///< heading's link name to its place in the document
    QList<int> visited_{0};        ///< places in the document, oldest first; never empty
    qsizetype current_ = 0;        ///< in `visited_`
};

/// The help viewer of the program: one window, made when first asked for and used again.
class WindowHelp : public HelpViewer {
  public:
    void ShowContents(const QString& file) override;

  private:
    std::unique_ptr<HelpWindow> window_;
};

}  // namespace tolvex
