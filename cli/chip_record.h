// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <set>

#include "cli/observed_port.h"

namespace tolvex {

/// What the writer has acknowledged of everything that changes the chip.
class ChipRecord : public WireListener {
  public:
    bool InProgrammingMode() const { return programming_; }
    /// Erased, or anything written.
    bool Touched() const { return erased_ || !words_.empty() || !bytes_.empty(); }
    /// For a person, lines.
    QString Text() const;
    /// {"erased": true, "flashWords": ["0000-00FF"], "eepromBytes": [...]}
    QJsonObject Json() const;

    void Opened(int, bool) override { programming_ = false; }
    void Closed() override { programming_ = false; }
    void Lost() override { programming_ = false; }
    void Began() override;
    void Sent(QByteArrayView bytes) override;
    void Received(QByteArrayView bytes) override;

  private:
    void Carry(bool acknowledged);
    int Argument(int index) const;

    QByteArray request_;
    bool answered_ = false;
    bool programming_ = false;
    bool erased_ = false;
    bool lowByteWritten_ = false;
    int address_ = 0;  ///< the writer's
    int word_ = 0;     ///< of the 'C' under way
    std::set<int> words_;
    std::set<int> bytes_;
};

}  // namespace tolvex
