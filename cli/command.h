// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineParser>
#include <span>

#include "cli/session.h"

namespace tolvex {

/// What was typed behind the command's name, and its options.
struct Call {
    QStringList arguments;
    const QCommandLineParser& options;

    bool Has(const char* option) const {
        const QString name = QString::fromLatin1(option);
        return options.optionNames().contains(name);
    }
};

/// A command of the tool: its face on the command line, and the function that carries it out and
/// gives the exit status; a failure has then been told.
struct CommandRow {
    QString name;
    QString arguments;  ///< as the help shows them: "CODE [DATA]"
    int least;          ///< number of arguments
    int most;
    QString summary;
    QList<QCommandLineOption> options;
    int (*run)(Session& session, const Call& call);
};

/// All commands in the order of the help.
std::span<const CommandRow> CommandRows();

int Detect(Session& session, const Call& call);
int Program(Session& session, const Call& call);
int Verify(Session& session, const Call& call);
int Read(Session& session, const Call& call);
int Erase(Session& session, const Call& call);
int Fuses(Session& session, const Call& call);
int Lock(Session& session, const Call& call);
int Check(Session& session, const Call& call);
int ListPorts(Session& session, const Call& call);
int ListDevices(Session& session, const Call& call);
int Doctor(Session& session, const Call& call);

}  // namespace tolvex
