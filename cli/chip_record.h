// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <functional>
#include <optional>
#include <set>
#include <vector>

#include "link/link.h"

namespace tolvex {

/// Listens to the commands: what has certainly changed in the chip, and what failed. A change is
/// certain when the writer has acknowledged it, and the way into programming mode before it, and
/// the proven chip has answered after it, before programming mode was left: a board may acknowledge
/// what no chip has heard.
///
/// It also ends an operation between two commands, so that what the chip was told
/// is known to the byte: from then on every command fails at once and the operation unwinds.
///
/// A signal ends it, and so do a lost chip or line, and several time-outs close together: waiting
/// them out for each of thousands of words would help nobody.
class ChipRecord {
  public:
    /// `signal`: the number of the signal that has come; 0 = none.
    explicit ChipRecord(std::function<int()> signal) : signal_(std::move(signal)) {}
    ChipRecord(const ChipRecord&) = delete;

    /// Another chip: nothing has happened so far.
    void Forget() { *this = ChipRecord(std::move(signal_)); }

    /// For the commands to record, which this outlives.
    CommandHooks Hooks();

    /// The chip has answered in programming mode; whether it is the proven one.
    void NoteProof(bool same);

    /// Looks for a signal. False: the run is over, no command may be sent.
    bool MaySend();
    /// From now on commands are sent whatever is asked: to leave programming mode.
    void AllowShutdownCommands() { shuttingDown_ = true; }

    /// A signal has ended the run.
    bool Stopped() const { return stopped_; }
    /// The line broke under the last command, or before it.
    bool LineLost() const { return lineLost_; }
    /// Another answer than the proven chip's has come.
    bool ContactLost() const { return contactLost_; }
    /// An operation is unwinding: what it says now tells nothing.
    bool Unwinding() const { return shuttingDown_ || unwinding_ || lineLost_ || contactLost_; }
    /// Of the first command that failed.
    std::optional<Outcome> FirstFailure() const { return firstFailure_; }
    /// From the moment in which the command goes out, until leaving it is acknowledged.
    bool InProgrammingMode() const { return programming_; }
    /// Something was erased or written, or may have been.
    bool Touched() const;
    /// What the chip holds of what was asked is not certain.
    bool Uncertain() const { return uncertain_ || !pending_.empty(); }
    /// For the user, lines.
    QString Text() const;
    /// {"erased": true, "flashWords": ["0000-00FF"], "eepromBytes": [...], "uncertain": false},
    /// with "fuseByte" and "lockByte" if such were written.
    QJsonObject Json() const;

  private:
    ChipRecord& operator=(ChipRecord&&) = default;

    /// An acknowledged change: the command's letter, and its address or its byte.
    struct Change {
        char letter;
        int value;
    };

    void Note(char letter, int argument, Outcome outcome);
    void NoteOutcome(Outcome outcome);
    void NoteChange(char letter, int argument, bool acknowledged);
    void Doubt(char letter);
    void DropPending();
    void Apply(const Change& change);

    std::function<int()> signal_;
    bool shuttingDown_ = false;
    bool stopped_ = false;
    bool unwinding_ = false;
    bool lineLost_ = false;
    bool cutOff_ = false;  ///< the line broke once, and nobody knows what the writer waits for
    bool contactLost_ = false;
    int timeOuts_{};  ///< of late
    int inTime_{};    ///< replies since the last of them
    std::optional<Outcome> firstFailure_ = {};

    bool programming_ = false;
    bool entered_ = false;              ///< entering was acknowledged
    std::vector<Change> pending_ = {};  ///< since then, until the chip answers
    bool erased_ = false;
    bool maybeErased_ = false;  ///< the last erase is not certain: nor is what is written after it
    bool uncertain_ = false;    ///< a change is not certain
    /// The writer's; nothing after a word that was not acknowledged, until it is set anew.
    std::optional<int> address_ = {};
    std::set<int> words_ = {};
    std::set<int> bytes_ = {};
    std::optional<int> fuses_ = {};
    std::optional<int> lock_ = {};
};

}  // namespace tolvex
