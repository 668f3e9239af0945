// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>

#include "cli/progress_line.h"
#include "cli/report_keys.h"
#include "cli/result.h"
#include "cli/surroundings.h"

namespace tolvex {

/// What the user sees of a run: lines, the progress, and with --json one object at the end instead
/// of the lines.
class Output {
  public:
    /// Both borrowed.
    Output(Console& console, const EventClock& clock)
        : console_(console), progress_(console, clock) {}

    void SetOptions(const CommonOptions& options) { options_ = options; }

    /// While it is muted only the progress shows, and nothing is reported.
    void Mute(bool muted) { muted_ = muted; }
    /// The terminal's bell, where there is a terminal.
    void Ring();

    /// A line of the result; not with --json.
    void Print(const QString& line);
    /// A line that a user at the terminal wants to see and a script doesn't: not with --json or
    /// --quiet.
    void Tell(const QString& line);
    /// A line on the error stream.
    void Remark(const QString& line);
    /// A file's text as the output; not with --json.
    void Put(const QByteArray& text);
    /// A text of an operation: a failure goes to the error stream.
    void TellMessage(const QString& text, bool failure);
    void TellFailure(const Failure& failure);
    /// The command that removes a cause.
    void TellFix(const QString& command);

    void BeginProgress(const QString& text);
    void StepProgress(double minimum, double value, double maximum);
    void EndProgress() { progress_.End(); }

    void Report(report::Key key, const QJsonValue& value) {
        if (!muted_) {
            report_[key] = value;
        }
    }
    /// Prints the object with --json.
    void PrintReport();

  private:
    Console& console_;
    ProgressLine progress_;
    CommonOptions options_;
    QJsonObject report_;
    bool muted_ = false;
};

}  // namespace tolvex
