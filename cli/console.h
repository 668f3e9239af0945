// SPDX-License-Identifier: MIT
#pragma once

#include <QIODevice>
#include <QString>
#include <functional>

namespace tolvex {

/// The two streams of the tool: results go out, progress and complaints go to the error stream.
class Console {
  public:
    /// Streams borrowed, open and unbuffered. `columns`: the width of the terminal that the error
    /// stream is, where a line can be drawn over; 0 = it is none.
    Console(QIODevice& out, QIODevice& error, std::function<int()> columns)
        : out_(out), error_(error), columns_(std::move(columns)) {}

    void Print(const QString& line) { Put(line.toUtf8() + '\n'); }
    /// To the output as it is.
    void Put(const QByteArray& bytes) { lost_ |= out_.write(bytes) != bytes.size(); }
    void Complain(const QString& line) { Draw(line + u'\n'); }
    /// To the error stream as it is, without a line end.
    void Draw(const QString& text) { error_.write(text.toUtf8()); }
    int Columns() const { return columns_(); }
    /// Output got lost: a full disk, a closed pipe.
    bool Lost() const { return lost_; }

  private:
    QIODevice& out_;
    QIODevice& error_;
    std::function<int()> columns_;
    bool lost_ = false;
};

}  // namespace tolvex
