// SPDX-License-Identifier: MIT
#pragma once

#include "base/person.h"
#include "base/program_state.h"
#include "device/chip_results.h"
#include "image/image.h"
#include "link/link.h"

namespace tolvex {

/// What all chip operations work with. An operation tells the person everything itself and returns
/// what it did.
class ChipOperation {
  public:
    /// Borrowed, one for all operations.
    struct Parts {
        WriterCommands& writer;
        Waiting& waiting;
        Listings& listings;
        const Person& person;
        ProgramState& state;
    };

  protected:
    explicit ChipOperation(const Parts& parts)
        : writer_(parts.writer),
          waiting_(parts.waiting),
          listings_(parts.listings),
          person_(parts.person),
          images_(parts.state.images),
          device_(parts.state.device),
          flag_(parts.state.errorFlag) {}

    /// The same text in status panel 1 and in the dialog with OK.
    void Report(const QString& text) const { Report(text, text); }
    void Report(const QString& statusText, const QString& dialogText) const;

    enum class Memory { Flash, Eeprom };
    struct PhaseEnd {
        bool succeeded;  ///< no command failed since the flag was cleared
        bool listed;     ///< false: the memory's listing could not be brought up to date
    };
    /// The end of a phase that worked on one memory: leaves programming mode; then tells a failure,
    /// or brings the memory's listing up to date and closes the dialog.
    PhaseEnd EndPhase(Memory memory, const QString& statusText, const QString& dialogText) const;

    WriterCommands& writer_;
    Waiting& waiting_;
    Listings& listings_;
    const Person& person_;
    MemoryImages& images_;
    const CurrentDevice& device_;
    ErrorFlag& flag_;
};

}  // namespace tolvex
