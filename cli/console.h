// SPDX-License-Identifier: MIT
#pragma once

#include <QIODevice>
#include <QString>

namespace tolvex {

/// The two streams of the tool: results go out, progress and complaints go to the error stream.
class Console {
  public:
    /// Borrowed and open. `terminal`: the error stream is one, so that a line can be drawn over.
    Console(QIODevice& out, QIODevice& error, bool terminal)
        : out_(out), error_(error), terminal_(terminal) {}

    void Print(const QString& line) { out_.write(line.toUtf8() + '\n'); }
    void Complain(const QString& line) { Draw(line + u'\n'); }
    /// To the error stream as it is, without a line end.
    void Draw(const QString& text) { error_.write(text.toUtf8()); }
    bool IsTerminal() const { return terminal_; }

  private:
    QIODevice& out_;
    QIODevice& error_;
    bool terminal_;
};

}  // namespace tolvex
