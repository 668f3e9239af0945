// SPDX-License-Identifier: MIT
#pragma once

#include "base/person.h"
#include "base/program_state.h"
#include "base/settings.h"
#include "link/link.h"
#include "link/serial_connection.h"

namespace tolvex {

/// Runs before every chip operation: opens the stored port and shakes hands with the writer.
class WriterDetector : public WriterDetection {
  public:
    struct Parts {
        SerialConnection& connection;
        WriterCommands& commands;
        const Settings& settings;
        const Person& person;
        ProgramState& state;
    };

    explicit WriterDetector(const Parts& parts) : parts_(parts) {}

    DetectionResult WriterCheck() override;

  private:
    /// How far detection has come; each stage has its own failure text.
    enum class Stage {
        StoredPort,
        SoftwareId,
        SoftwareVersion,
        HardwareVersion,
        SelectDevice,
        Count
    };

    /// False leaves `stage` at what failed.
    bool ShakeHands(WriterIdentity& identity, Stage& stage);
    void ReportSuccess(const WriterIdentity& identity);
    void ReportFailure(Stage stage);

    Parts parts_;
};

}  // namespace tolvex
