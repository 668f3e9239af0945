// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <functional>

#include "base/person.h"
#include "base/program_state.h"
#include "base/settings.h"
#include "link/link.h"
#include "link/serial_connection.h"

namespace tolvex {

/// What the port dialog does, apart from its looks. An entry's index is its port number; index 0
/// is "no port".
class PortSelection {
  public:
    struct Parts {
        SerialConnection& connection;
        WriterCommands& commands;
        WriterDetection& detection;
        Settings& settings;
        const Person& person;
        ProgramState& state;
    };

    explicit PortSelection(const Parts& parts) : parts_(parts) {}

    /// "????", then COM1 to COM20.
    static QStringList Entries();
    /// The dialog appears: closes the port. Returns the entry to preselect.
    int Load();
    /// OK on entry `index`. False: it could not be opened, the person has been told and may choose
    /// again. True: the dialog is done. `hideDialog` runs before detection starts.
    bool Confirm(int index, const std::function<void()>& hideDialog);
    void Cancel();

  private:
    void ReportOpenFailure(const QString& port);

    Parts parts_;
};

}  // namespace tolvex
