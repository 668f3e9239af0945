// SPDX-License-Identifier: MIT
#pragma once

#include <QMenuBar>
#include <QPointer>
#include <span>

namespace tolvex {

class WindowProgram;

enum MenuFlag {
    kTop = 1,    ///< begins a menu on the bar
    kOnBar = 2,  ///< a command on the bar itself
    kSeparator = 4,
    kHidden = 8,
    kChecked = 16,    ///< checkable, checked at first
    kExclusive = 32,  ///< not while an operation runs
    kWindowList = 64  ///< the open child windows are listed below its items
};

/// An item of the menu bar, or a menu, to which the items below it belong.
struct MenuRow {
    const char* name;
    const char* caption;  ///< marked for translation; empty for a separator
    int flags{};
    void (*run)(WindowProgram& program) = nullptr;
    QStringView shortcut = {};
};

/// The menu bar. Every item is an action named after it; hidden items exist and work, but are not
/// shown.
class MenuBar : public QMenuBar {
    Q_OBJECT

  public:
    /// `rows` are borrowed.
    MenuBar(std::span<const MenuRow> rows, QWidget* parent);

    /// While an operation runs, the items that would start another one are disabled.
    void SetBusy(bool busy);
    /// The first menu is marked and takes the keyboard focus; Esc gives it back.
    void FocusFirst();
    QMenu* WindowMenu() const { return windowMenu_; }

  Q_SIGNALS:
    /// The user chose an item.
    void Chosen(const MenuRow* row);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void AddItem(const MenuRow& row, QMenu* menu);
    void GiveFocusBack();

    QMenu* windowMenu_ = nullptr;
    QPointer<QWidget> before_;  ///< had the focus before the menus
    QList<QAction*> exclusive_;
};

}  // namespace tolvex
