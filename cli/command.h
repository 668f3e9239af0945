// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineParser>

#include "cli/session.h"

namespace tolvex {

/// What was typed behind the command's name, and its options.
struct Call {
    QStringList arguments;
    const QCommandLineParser& options;

    bool Has(const char* option) const {
        return options.optionNames().contains(QString::fromLatin1(option));
    }
    /// The option's value, where it was given.
    std::optional<QString> Value(const char* option) const {
        return Has(option) ? std::optional(options.value(QString::fromLatin1(option)))
                           : std::nullopt;
    }
};

/// A command of the tool: its face on the command line, and the function that carries it out.
struct CliCommand {
    QString name;
    QString arguments;  ///< as the help shows them: "CODE [DATA]"
    int least;          ///< number of arguments
    int most;
    QString summary;
    QList<QCommandLineOption> options;
    Status (*run)(Session& session, const Call& call);
    /// What the arguments may be, lines for the help; null where the summary says it all.
    QString (*takes)(const CurrentDevice& device) = nullptr;
};

/// All commands in the order of the help, in the language that is installed.
QList<CliCommand> CliCommands();

QString TakesFiles(const CurrentDevice& device);
QString TakesFuses(const CurrentDevice& device);
QString TakesLock(const CurrentDevice& device);

Status Detect(Session& session, const Call& call);
Status Program(Session& session, const Call& call);
Status BatchProgram(Session& session, const Call& call);
Status Verify(Session& session, const Call& call);
Status Read(Session& session, const Call& call);
Status Blank(Session& session, const Call& call);
Status Dump(Session& session, const Call& call);
Status Erase(Session& session, const Call& call);
Status Fuses(Session& session, const Call& call);
Status Lock(Session& session, const Call& call);
Status Check(Session& session, const Call& call);
Status ListPorts(Session& session, const Call& call);
Status ListDevices(Session& session, const Call& call);
Status Doctor(Session& session, const Call& call);
Status BuildWriter(Session& session, const Call& call);

}  // namespace tolvex
