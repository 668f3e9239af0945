// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QList>
#include <memory>
#include <vector>

#include "cli/session.h"

namespace tolvex {

/// A command's face on the command line.
struct CommandFace {
    QString name;
    QString arguments;  ///< as the help shows them: "CODE [DATA]"
    int least;          ///< number of arguments
    int most;
    QString summary;
    QList<QCommandLineOption> options = {};
};

/// One command of the tool.
class CliCommand {
  public:
    explicit CliCommand(CommandFace face) : face_(std::move(face)) {}
    virtual ~CliCommand() = default;
    CliCommand(const CliCommand&) = delete;

    const CommandFace& Face() const { return face_; }
    /// What was typed behind the command's name, and its options.
    struct Call {
        QStringList arguments;
        const QCommandLineParser& options;
    };
    /// The exit status; a failure has been told.
    virtual int Run(Session& session, const Call& call) = 0;

  private:
    CommandFace face_;
};

/// All commands in the order of the help.
std::vector<std::unique_ptr<CliCommand>> AllCommands();

}  // namespace tolvex
