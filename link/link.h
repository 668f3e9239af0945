// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

#include "base/program_state.h"
#include "base/settings.h"
#include "base/user_interface.h"
#include "link/serial_connection.h"

namespace tolvex {

struct CommandRow;

/// What stands between the commands and the line. Both may be empty.
struct CommandHooks {
    /// Asked before the first byte of a command; false = the command is not sent. The two halves of
    /// a program word are one command: no word is left half-written.
    std::function<bool()> maySend = {};
    /// Told how each letter ended, before the user is. `argument`: the byte, the address (0 to
    /// 65535) or the device code that went with it; 0 = none.
    std::function<void(char letter, int argument, Outcome outcome)> onEnd = {};
};

/// The writer's command set: one letter out, one judged reply back. A command that does not end
/// with `Ok` sets the shared error flag and writes one text into status panel 1; its results then
/// keep what the caller put there. Commands yield to the event loop while they wait, one at a time.
class WriterCommands {
  public:
    /// Borrows the first three.
    WriterCommands(SerialConnection& connection, UserInterface& ui, ErrorFlag& flag,
                   CommandHooks hooks = {})
        : connection_(connection), ui_(ui), flag_(flag), hooks_(std::move(hooks)) {}

    Outcome ReadSoftwareId(QString& identifier);    ///< 7 characters
    Outcome ReadSoftwareVersion(QString& version);  ///< "3.9"
    Outcome ReadHardwareVersion(QString& version);  ///< "1.0"
    Outcome SelectDeviceCode(std::uint8_t deviceCode);
    Outcome EnterProgrammingMode();
    /// Pauses 0.1 s after any reply.
    Outcome LeaveProgrammingMode();
    Outcome ReadSignature(Signature& bytes);
    /// 0 to 65535: a word address for program memory, a byte address for data memory.
    Outcome SetAddress(int address);
    /// The word at the writer's address, which then moves on by one.
    Outcome ReadProgramWord(std::uint8_t& high, std::uint8_t& low);
    /// Low byte first on the wire; the writer's address moves on by one word.
    Outcome WriteProgramWord(std::uint8_t high, std::uint8_t low);
    Outcome ReadDataByte(std::uint8_t& data);
    Outcome WriteDataByte(std::uint8_t data);
    Outcome ChipErase();
    Outcome WriteFuseBits(std::uint8_t fuses);
    Outcome WriteLockBits(std::uint8_t lock);
    Outcome ReadLockFuseBits(std::uint8_t& bits);
    Outcome ReadFuseBits(std::uint8_t& fuses);
    Outcome LedOn();
    Outcome LedOff();

    /// The firmware version of the last successful `ReadSoftwareVersion`; empty before the first.
    QString SoftwareVersion() const { return softwareVersion_; }

  private:
    /// The reply is then in `reply_`.
    Outcome Run(const CommandRow& row, std::span<const std::uint8_t> arguments = {});
    Outcome RunUnasked(const CommandRow& row, std::span<const std::uint8_t> arguments);
    Outcome ReadByte(const CommandRow& row, std::uint8_t& result);
    void TellFailure(const CommandRow& row, Outcome outcome);
    std::uint8_t Byte(int index) const { return static_cast<std::uint8_t>(reply_.at(index)); }
    QString VersionText() const;

    SerialConnection& connection_;
    UserInterface& ui_;
    ErrorFlag& flag_;
    CommandHooks hooks_;
    QByteArray reply_;
    QString softwareVersion_;
};

/// What detection and the port dialog work on; borrowed.
struct LinkContext {
    SerialConnection& connection;
    WriterCommands& commands;
    Settings& settings;
    UserInterface& ui;
    ProgramState& state;
};

/// The only firmware that knows the 28-pin chips, those of the fuse group BOD_CKSEL.
inline constexpr QStringView kFullFirmware = u"3.9";

/// A detection: true in a condition when the writer answered all of it.
struct DetectionResult {
    Outcome outcome = Outcome::NotSent;  ///< of the last command; without an open port none is sent
    /// What the writer says of itself, as far as the detection came; the rest is empty.
    QString identifier{}, softwareVersion{}, hardwareVersion{};

    explicit operator bool() const { return outcome == Outcome::Ok; }
};

/// Finds the writer at the stored port and tells it the selected device. Runs before every chip
/// operation. After a success the port stays open for the operation's commands; after a failure it
/// is closed and the user has been told.
DetectionResult WriterCheck(const LinkContext& link);

// What the port dialog does, apart from its looks. An entry's index is its port number; index 0 is
// "no port".

/// "????", then COM1 to COM20.
QStringList PortEntries();
/// The dialog appears: closes the port. Returns the entry to preselect.
int BeginPortChoice(const LinkContext& link);
/// OK on entry `index`. False: it could not be opened, the user has been told and may choose again.
/// True: the dialog is done. `hideDialog` runs before detection starts.
bool ConfirmPortChoice(const LinkContext& link, int index, const std::function<void()>& hideDialog);
void CancelPortChoice(const LinkContext& link);

}  // namespace tolvex
