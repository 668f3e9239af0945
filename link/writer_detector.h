// SPDX-License-Identifier: MIT
#pragma once

#include "app/app.h"
#include "device/device.h"
#include "link/link.h"
#include "link/serial_connection.h"

namespace tolvex {

/// Runs before every chip operation: opens the stored port and shakes hands with the writer.
class WriterDetector : public WriterDetection {
  public:
    struct Parts {
        SerialConnection& connection;
        WriterCommands& commands;
        const CurrentDevice& device;
        const Settings& settings;
        StatusPanels& status;
        MessageDialog& dialog;
        ErrorFlag& errorFlag;
    };

    explicit WriterDetector(const Parts& parts) : parts_(parts) {}

    /// What the writer says of itself.
    struct Identity {
        QString identifier, softwareVersion, hardwareVersion;
    };

    bool WriterCheck() override;
    /// The result of the last detection.
    bool Found() const { return found_; }
    /// As far as the last detection came.
    const Identity& LastIdentity() const { return identity_; }

  private:
    /// How far detection has come; each stage has its own failure text.
    enum class Stage { StoredPort, SoftwareId, SoftwareVersion, HardwareVersion, SelectDevice };

    /// False leaves `stage` at what failed.
    bool ShakeHands(Stage& stage);
    void ReportSuccess();
    void ReportFailure(Stage stage);

    Parts parts_;
    Identity identity_;
    bool found_ = false;
};

}  // namespace tolvex
