// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineParser>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

#include "writer/chip_models.h"

namespace tolvex {

/// What every simulated board can be told on its command line.
struct BoardOptions {
    std::optional<QString> link;        ///< where a symbolic link leads to the terminal
    const ChipModel* device = nullptr;  ///< null = not named
    bool empty = false;                 ///< no chip in the socket
    std::optional<QString> state;       ///< the file that keeps the chip
};

/// An option of one program.
struct OptionRow {
    QCommandLineOption option;
    std::optional<int> most = {};  ///< its value is a whole number from 0 to this
    bool repeated = false;         ///< may be given several times
};

/// In place of options: what to print, and the exit status: 0 for an answer, 2 for wrong use.
struct OptionAnswer {
    QString text;
    int status;
};

/// The command line of a simulated board: --link, --device, --empty, --state, --help and --version,
/// and the program's own options.
class OptionParser {
  public:
    /// `program` is its name, `description` a sentence for --help.
    OptionParser(const QString& program, const QString& description, const QList<OptionRow>& own);

    /// `arguments` begin with the program's name. Nothing = read the values.
    std::optional<OptionAnswer> Parse(const QStringList& arguments);

    const BoardOptions& Board() const { return board_; }
    bool IsSet(const QString& name) const { return parser_.isSet(name); }
    /// Names of the options that were given.
    QStringList Given() const;
    /// The value that was given, or the option's default, if it has one.
    std::optional<QString> Value(const QString& name) const;
    QStringList Values(const QString& name) const { return parser_.values(name); }
    /// Of an option with `most`.
    std::optional<int> Number(const QString& name) const;

  private:
    std::optional<QString> WrongUse() const;
    std::optional<QString> WrongValues(const OptionRow& row) const;

    QString program_;
    QString description_;
    QCommandLineParser parser_;
    QList<OptionRow> rows_;
    BoardOptions board_;
};

}  // namespace tolvex
