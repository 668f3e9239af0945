// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace tolvex {

/// A raw pseudo-terminal: what a client writes to the device at `Path()` is read here, and the
/// other way round, byte for byte. Clients may come and go; closing it is a hang-up for the one
/// that has it open.
class PseudoTerminal {
  public:
    PseudoTerminal() = default;
    ~PseudoTerminal() { Close(); }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    /// Nothing when it worked, else the reason.
    std::optional<QString> Open();
    void Close();
    /// From now on `Read` finds the terminal readable and empty once the last client has left.
    void LetGo();
    /// To wait on; -1 while closed.
    int Descriptor() const { return master_; }
    QString Path() const { return path_; }

    /// What has come, without waiting.
    QByteArray Read();
    /// Bytes that nobody takes up while the buffer of the terminal is full are lost, as on a line
    /// without flow control.
    void Write(const QByteArray& bytes);

  private:
    int master_ = -1;
    int slave_ = -1;  // held open, or reading would fail whenever the last client leaves
    QString path_;
};

/// A symbolic link that lasts as long as this object and leads to a terminal.
class TerminalLink {
  public:
    TerminalLink() = default;
    ~TerminalLink();
    TerminalLink(const TerminalLink&) = delete;
    TerminalLink& operator=(const TerminalLink&) = delete;

    /// Replaces only what a board has left behind: a link to a pseudo-terminal at which there is
    /// no board any more. Nothing when it worked, else the reason.
    std::optional<QString> Lead(const QString& link, const QString& terminal);

  private:
    std::optional<QString> link_;
    QString terminal_;  // that the link leads to
};

}  // namespace tolvex
