// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <optional>
#include <set>
#include <utility>

#include "cli/observed_port.h"
#include "link/link.h"

namespace tolvex {

/// The command set, with a record of what the writer has acknowledged of everything that changes
/// the chip, and of what failed.
class ChipRecord : public WriterCommands {
    using W = WriterCommands;
    using Byte = std::uint8_t;

  public:
    enum class Failure { None, Silent, Refused };

    /// `port` is borrowed.
    explicit ChipRecord(const ObservedPort& port) : port_(port) {}
    /// The commands that carry out; borrowed. Gives itself back.
    WriterCommands& Around(WriterCommands& commands);

    /// From the moment in which the command goes out, until leaving it is acknowledged.
    bool InProgrammingMode() const { return programming_; }
    /// A command has just failed: what is said now tells why.
    bool Failing() const { return current_.Failed(); }
    /// Of the first command that failed.
    Failure FirstFailure() const { return failure_; }
    /// Something was erased or written, or may have been.
    bool Touched() const;
    /// For a person, lines.
    QString Text() const;
    /// {"erased": true, "flashWords": ["0000-00FF"], "eepromBytes": [...], "uncertain": false},
    /// with "fuseByte" and "lockByte" if such were written.
    QJsonObject Json() const;

    void ReadSoftwareId(QString& text, ErrorFlag& flag) override {
        Run(flag, &W::ReadSoftwareId, text);
    }
    void ReadSoftwareVersion(QString& text, ErrorFlag& flag) override {
        Run(flag, &W::ReadSoftwareVersion, text);
    }
    void ReadHardwareVersion(QString& text, ErrorFlag& flag) override {
        Run(flag, &W::ReadHardwareVersion, text);
    }
    void SelectDeviceCode(Byte code, ErrorFlag& flag) override {
        Run(flag, &W::SelectDeviceCode, code);
    }
    void EnterProgrammingMode(ErrorFlag& flag) override;
    void LeaveProgrammingMode(ErrorFlag& flag) override {
        programming_ = !Run(flag, &W::LeaveProgrammingMode) && programming_;
    }
    bool ReadSignature(std::array<Byte, 3>& bytes, ErrorFlag& flag) override {
        return Run(flag, &W::ReadSignature, bytes);
    }
    void SetAddress(std::int32_t address, ErrorFlag& flag) override;
    bool ReadProgramWord(Byte& high, Byte& low, ErrorFlag& flag) override {
        return Run(flag, &W::ReadProgramWord, high, low);
    }
    void WriteProgramWord(Byte high, Byte low, ErrorFlag& flag) override;
    void ReadDataByte(Byte& data, ErrorFlag& flag) override { Run(flag, &W::ReadDataByte, data); }
    void WriteDataByte(Byte data, ErrorFlag& flag) override;
    void ChipErase(ErrorFlag& flag) override;
    void WriteFuseBits(Byte fuses, ErrorFlag& flag) override;
    void WriteLockBits(Byte lock, ErrorFlag& flag) override;
    void ReadLockFuseBits(Byte& bits, ErrorFlag& flag) override {
        Run(flag, &W::ReadLockFuseBits, bits);
    }
    void ReadFuseBits(Byte& bits, ErrorFlag& flag) override { Run(flag, &W::ReadFuseBits, bits); }
    void LedOn() override { inner_->LedOn(); }
    void LedOff() override { inner_->LedOff(); }
    QString SoftwareVersion() const override { return inner_->SoftwareVersion(); }

  private:
    /// True when the command succeeded.
    template <typename Method, typename... Arguments>
    bool Run(ErrorFlag& flag, Method method, Arguments&&... arguments) {
        (inner_->*method)(std::forward<Arguments>(arguments)..., current_);
        const bool succeeded = !current_.Failed();
        if (!succeeded) {
            flag.Set();
            NoteFailure();
        }
        current_.Clear();
        return succeeded;
    }
    void NoteFailure();
    /// Of a command that changes the chip: whether it is known to have done so.
    bool Changed(bool acknowledged);

    const ObservedPort& port_;
    WriterCommands* inner_ = nullptr;
    ErrorFlag current_;
    Failure failure_ = Failure::None;
    bool programming_ = false;
    bool erased_ = false;
    bool uncertain_ = false;  ///< a command that changes the chip was not acknowledged
    /// The writer's; nothing after a word that was not acknowledged, until it is set anew.
    std::optional<int> address_;
    std::set<int> words_;
    std::set<int> bytes_;
    std::optional<Byte> fuses_;
    std::optional<Byte> lock_;
};

}  // namespace tolvex
