// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "base/status_panels.h"
#include "link/link.h"
#include "link/serial_connection.h"

namespace tolvex {

struct CommandRow;

/// The command set over a serial connection.
class SerialCommands : public WriterCommands {
  public:
    /// Borrows all three; `sharedFlag` is what the LED commands set.
    SerialCommands(SerialConnection& connection, StatusPanels& status, ErrorFlag& sharedFlag)
        : connection_(connection), status_(status), sharedFlag_(sharedFlag) {}

    void ReadSoftwareId(QString& identifier, ErrorFlag& flag) override;
    void ReadSoftwareVersion(QString& version, ErrorFlag& flag) override;
    void ReadHardwareVersion(QString& version, ErrorFlag& flag) override;
    void SelectDeviceCode(std::uint8_t deviceCode, ErrorFlag& flag) override;
    void EnterProgrammingMode(ErrorFlag& flag) override;
    void LeaveProgrammingMode(ErrorFlag& flag) override;
    bool ReadSignature(std::array<std::uint8_t, 3>& bytes, ErrorFlag& flag) override;
    void SetAddress(std::int32_t address, ErrorFlag& flag) override;
    bool ReadProgramWord(std::uint8_t& high, std::uint8_t& low, ErrorFlag& flag) override;
    void WriteProgramWord(std::uint8_t high, std::uint8_t low, ErrorFlag& flag) override;
    void ReadDataByte(std::uint8_t& data, ErrorFlag& flag) override;
    void WriteDataByte(std::uint8_t data, ErrorFlag& flag) override;
    void ChipErase(ErrorFlag& flag) override;
    void WriteFuseBits(std::uint8_t fuses, ErrorFlag& flag) override;
    void WriteLockBits(std::uint8_t lock, ErrorFlag& flag) override;
    void ReadLockFuseBits(std::uint8_t& bits, ErrorFlag& flag) override;
    void ReadFuseBits(std::uint8_t& fuses, ErrorFlag& flag) override;
    void LedOn() override;
    void LedOff() override;
    QString SoftwareVersion() const override { return softwareVersion_; }

  private:
    /// Sends the row's letter and `arguments` (a write each), awaits and judges the reply. False
    /// when no reply came; a wrong reply sets the flag but counts as a reply.
    bool Run(char letter, ErrorFlag& flag, std::span<const QByteArray> arguments = {});
    bool RunWithByte(char letter, std::uint8_t argument, ErrorFlag& flag);
    void Judge(const CommandRow& row, ErrorFlag& flag);
    std::uint8_t Reply(int index) const;
    QString VersionReply() const;
    void ReadByte(char letter, std::uint8_t& result, ErrorFlag& flag);

    SerialConnection& connection_;
    StatusPanels& status_;
    ErrorFlag& sharedFlag_;
    QString softwareVersion_;
};

}  // namespace tolvex
