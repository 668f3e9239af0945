// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QToolButton>

#include "app/window_program.h"
#include "tests/support/test_bench.h"

namespace tolvex::testing {

/// The window program with real widgets; file dialogs and message boxes are the recorder's.
class WindowBench : public Surroundings {
  public:
    /// Both first-start dialogs have been shown before, unless the caller changes `settings` before
    /// `Start`. With 0 baud a reply is there at once, so that only pauses yield.
    explicit WindowBench(int deviceIndex = 0, int baud = 0,
                         const QMap<QString, QString>& stored = {});

    /// Starts the program and waits until the windows stand.
    void Start();

    template <typename Widget>
    Widget* Find(const char* name) {
        return window.findChild<Widget*>(QString::fromLatin1(name));
    }
    QAction* Item(const char* name) { return Find<QAction>(name); }
    QMdiSubWindow* Child(const char* name);
    void Type(const char* box, const QString& text) { Find<QLineEdit>(box)->setText(text); }
    QString Focus();  ///< the name of the control that the keyboard would reach
    /// Clicks a button or chooses a menu item, and waits for what it does.
    void Click(const char* name);
    /// What the message dialog says now; null while it is closed.
    QString Message();
    QString Panel(int panel) { return window.Panels().PanelText(panel); }
    QStringList ListingFiles() const { return QDir(folder.path()).entryList(QDir::Files); }

    /// Answers the next modal windows, in order, by clicking the named button in each.
    void AnswerDialogs(const QStringList& buttons);
    /// Runs on the next modal window before it is answered.
    void DuringDialog(std::function<void(QWidget&)> look) { look_ = std::move(look); }
    QStringList dialogsSeen;  ///< the captions of those that came

    ComPorts comPorts;
    QString helpShown;  ///< the file

    WindowProgram program;
    frmMain& window = program.Window();

  private:
    std::function<void(QWidget&)> look_;
};

/// One that has been started.
struct RunningBench : WindowBench {
    explicit RunningBench(int deviceIndex = 0) : WindowBench(deviceIndex) { Start(); }
};

}  // namespace tolvex::testing
