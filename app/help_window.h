// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QMainWindow>
#include <memory>

class QLabel;
class QLineEdit;
class QToolButton;
class QTreeWidget;

namespace tolvex {

class HelpPage;

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
    QWidget* NewPages();
    /// False when `file` can't be read.
    bool Read(const QString& file);
    void FillContents();
    void FocusSearch();
    void FindNext();

    HelpPage* page_;
    QTreeWidget* contents_;
    QLineEdit* search_;
    QLabel* found_;

    QString file_;      ///< what the page shows
    QDateTime edited_;  ///< when that was changed last; invalid when it can't be read
};

/// Opens the help file in `window`, which is made when first asked for and used again. A file that
/// can't be read is reported by the window itself.
void ShowHelp(std::unique_ptr<HelpWindow>& window, const QString& file);

}  // namespace tolvex
